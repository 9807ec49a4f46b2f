// The lines of text that a printed page, and its preview, have beside the photos.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// " W1600 x H1200  - C:\Photos\a.jpg  [09:05am 3/Mar/2024]": the photo's size in pixels, its path as a person reads it,
// and its file's time. The leading blank is part of it.
std::string InfoLine(MainForm& main, double width, double height, const std::string& path);
// "Printed by: " and the company name; one blank where that is empty or blanks only.
std::string CompanyLine(const MainForm& main);

}  // namespace pixorra
