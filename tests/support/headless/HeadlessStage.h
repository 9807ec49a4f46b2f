// The stage without windows.
#pragma once

#include "platform/headless/HeadlessPlatform.h"

namespace pixorra {

using StagePlatform = HeadlessPlatform;

}  // namespace pixorra
