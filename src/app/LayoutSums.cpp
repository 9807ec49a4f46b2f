#include "app/LayoutSums.h"

#include <algorithm>

#include "platform/runtime/Numbers.h"

namespace pixorra {

PreviewSize FitPreview(double windowWidth, double windowHeight) {
  double width = windowWidth - 537;
  const double height = windowHeight - 422;
  if (width * 60 / 80 > height) width = height * 80 / 60;
  if (width > 350) width = 350;
  return {width, width * 60 / 80};
}

int ButtonGap(int stripWidth, int frameWidth) {
  return std::min(55, CLng((stripWidth - frameWidth) / 7.0));
}

int OpenFolderColumns(double windowWidth, int cellWidth) {
  return std::min(4, CLng((windowWidth - 546 - 50) / cellWidth));
}

int BandHeight(double previewHeight) {
  return std::max(184, CLng(previewHeight));
}

}  // namespace pixorra
