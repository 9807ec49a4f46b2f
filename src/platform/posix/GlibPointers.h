// Owners of what GLib returns.
#pragma once

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <memory>

namespace pixorra {

template <auto release>
struct GlibRelease {
  template <typename T>
  void operator()(T* owned) const {
    release(owned);
  }
};

using GlibText = std::unique_ptr<char, GlibRelease<g_free>>;
using GlibTexts = std::unique_ptr<char*, GlibRelease<g_strfreev>>;
using GlibKeyFile = std::unique_ptr<GKeyFile, GlibRelease<g_key_file_unref>>;
template <typename T>
using GlibObject = std::unique_ptr<T, GlibRelease<g_object_unref>>;

}  // namespace pixorra
