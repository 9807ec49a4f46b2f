// The program in its windows, printing into a PDF file that is then measured.
#pragma once

#include <QPageSize>
#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/qt/printing/PdfPrinter.h"
#include "platform/qt/printing/QtPrintSurface.h"
#include "platform/services/Printing.h"
#include "tests/support/TemporaryDrive.h"
#include "tests/support/headless/TestHost.h"
#include "window/MainForm.h"

namespace pixorra {

inline constexpr double Twip = 1 / 20.0;  // points

// The papers that are measured.
struct MeasuredPaper {
  const char* Name;
  QPageSize Size;
};
inline const MeasuredPaper MeasuredPapers[] = {{"A4", QPageSize(QPageSize::A4)},
                                               {"Letter", QPageSize(QPageSize::Letter)},
                                               {"Card", QPageSize(QSizeF(100, 150), QPageSize::Millimeter)}};
inline void PrintTo(const MeasuredPaper& paper, std::ostream* out) {
  *out << paper.Name;
}

// Of the sheet turned, in points, and what of it is printed on.
struct TurnedPaper {
  double Width = 0;
  double Height = 0;
  double MarginX = 0;
  double MarginY = 0;
  // The printable area in twips.
  double ScaleWidth = 0;
  double ScaleHeight = 0;
};

// A printer that writes each document over one file, on any paper.
class FilePrinting final : public Printing {
 public:
  explicit FilePrinting(QtBackend& backend) : pdf_(backend) {}

  std::vector<std::string> PrinterNames() override { return {pdf_.Name()}; }
  void SetCurrentPrinter(const std::string&) override {}
  void WhenDefaultIsKnown(std::function<void(const std::string& name)>) override {}
  void SetTrackDefault(bool) override {}
  void HoldPrinter(bool) override {}
  std::string CurrentPrinterName() override { return pdf_.Name(); }
  PrintSurface& Printer() override { return surface_; }
  bool IsReady(const std::string&) override { return true; }
  bool ShowPrintSetup() override { return false; }
  bool ShowPrintDialog() override { return false; }
  bool ShowProperties(const std::string&) override { return false; }

  PdfPrinter& Pdf() { return pdf_; }

 private:
  PdfPrinter pdf_;
  QtPrintSurface surface_{pdf_};
};

// The program in its windows, with printers of the test's choice.
class PaperTest : public ::testing::Test {
 protected:
  explicit PaperTest(const std::function<std::unique_ptr<Printing>(QtBackend&)>& makePrinting);
  ~PaperTest() override;

  // A folder of the drive becomes the film strip, and its thumbnails are loaded.
  void ShowStrip(const std::string& folder);
  template <typename Wanted>
  static Wanted& Find(Container& form, const std::string& name) {
    for (Control* control : form.Controls()) {
      if (control->Name() == name) return static_cast<Wanted&>(*control);
    }
    throw std::runtime_error("no control " + name);
  }

  TemporaryDrive drive;
  TestHost run{drive};

 private:
  Host MakeHost();
  std::unique_ptr<Printing> printing_;
  Host host_;

 public:
  MainForm main;
};

// Its printer writes one file.
class PagesTest : public PaperTest {
 protected:
  PagesTest();

  void SetPaper(const QPageSize& size);
  TurnedPaper Paper();
  QString File() const { return folder_.filePath("printed.pdf"); }

  FilePrinting& printing;

 private:
  QTemporaryDir folder_;
};

}  // namespace pixorra
