#include "utility/ViewReadmeForm.h"

#include <algorithm>
#include <memory>

#include "base/Routines.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/ErrorReport.h"
#include "platform/runtime/Text.h"
#include "platform/runtime/Utf8.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "platform/services/Places.h"
#include "platform/services/Printing.h"
#include "utility/PrintText.h"
#include "utility/RunPrintJob.h"
#include "window/MainForm.h"
#include "window/ModelessForms.h"

namespace pixorra {

namespace {

// Pixels.
constexpr int Margin = 12;
constexpr int FirstWidth = 640;
constexpr int FirstHeight = 480;
constexpr int LeastWidth = 320;
constexpr int LeastHeight = 160;
constexpr int ButtonWidth = 96;
constexpr int ButtonHeight = 28;

// Bytes of a file. A text box is slow with more.
constexpr std::size_t MostBytes = std::size_t{4} * 1024 * 1024;
constexpr std::string_view CutShort = "[This file is longer. Only its first 4 MB are shown here.]";

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

void AppendReadable(std::string& text, std::string_view line) {
  if (IsValidUtf8(line)) {
    text += line;
    return;
  }
  for (std::size_t at = 0; at < line.size();) {
    const Utf8Character character = CharacterAt(line, at);
    AppendCharacter(text, character.Code >= StrayByte ? character.Code - StrayByte : character.Code);
    at += character.Bytes;
  }
}

// The whole file or, up to the last line end or character within it, the part that is shown, and a line that says so.
std::string TextToShow(Files& files, const std::string& path) {
  const std::unique_ptr<File> file = files.Open(path, OpenMode::Read);
  const std::int64_t length = file->Length();
  std::string bytes(std::min(MostBytes, static_cast<std::size_t>(length)), '\0');
  bytes.resize(file->ReadAt(0, bytes.data(), bytes.size()));
  if (static_cast<std::size_t>(length) <= MostBytes) return TextOfFile(bytes);
  std::size_t end = bytes.rfind('\n');
  // A line that is most of the file is cut within.
  if (end == std::string::npos || end < bytes.size() / 2) {
    end = bytes.size();
    while (end > 0 && (static_cast<unsigned char>(bytes[end - 1]) & 0xC0U) == 0x80U) --end;
    if (end > 0 && static_cast<unsigned char>(bytes[end - 1]) >= 0xC0U) --end;
    if (end == 0) end = bytes.size();
  }
  bytes.resize(end);
  return TextOfFile(bytes) + "\r\n" + std::string(CutShort) + "\r\n";
}

void PrintReadme(Host& host, const std::string& text) {
  PrintSurface& printer = host.printing.Printer();
  // What a print job that failed has left over is a document of its own.
  ErrorsIgnored([&] { printer.EndDoc(); });
  if (!OrElse(false, [&] { return host.printing.ShowPrintDialog(); }) || host.toolkit.Ended()) return;
  printer.SetDocumentName("Pixorra - Read Me");
  bool begun = false;
  try {
    BeginText(printer);
    begun = true;
    PrintText(printer, text);
    printer.EndDoc();
  } catch (const RuntimeError& failure) {
    printer.KillDoc();
    // A document that its user has thought better of is passed over in silence.
    if (!begun && failure.Number() == error::Printer) return;
    host.dialogs.MsgBox(ErrorReport(failure), BoxIcon::Exclamation, BoxButtons::Ok, "Can't Print");
  }
}

}  // namespace

std::string TextOfFile(std::string_view bytes) {
  if (bytes.starts_with(ByteOrderMark)) bytes.remove_prefix(ByteOrderMark.size());
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 16);
  for (std::string_view line : Lines(bytes)) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    AppendReadable(text, line);
    text += "\r\n";
  }
  return text;
}

ViewReadmeForm::ViewReadmeForm(MainForm& main) : Window(main.host.toolkit, "ViewReadmeForm"), main_(main) {
  Window.SetCaption("Pixorra - Read Me");
  Window.SetSizable(true);
  Window.SetClientSize(FirstWidth, FirstHeight);
  ReadmeTextbox.SetMultiLine(true);
  ReadmeTextbox.SetLocked(true);
  ReadmeTextbox.SetAccessibleName("Read Me");
  PrintButton.SetCaption("&Print");
  CancelButton.SetCaption("&Close");
  CancelButton.SetDefault(true);
  CancelButton.SetCancel(true);
  ArrangeControls();
  Connect(Window.On().Load, [this](Control&) { Form_Load(); });
  Connect(Window.On().Resize, [this](Control&) { ArrangeControls(); });
  Connect(PrintButton.On().Click, [this](Control&) { PrintButton_Click(); });
  Connect(CancelButton.On().Click, [this](Control&) { Window.Unload(); });
}

void ViewReadmeForm::ArrangeControls() {
  const int width = std::max(LeastWidth, Window.ScaleWidth());
  const int height = std::max(LeastHeight, Window.ScaleHeight());
  const int buttons = height - Margin - ButtonHeight;
  ReadmeTextbox.Move(Margin, Margin, width - 2 * Margin, buttons - 2 * Margin);
  CancelButton.Move(width - Margin - ButtonWidth, buttons, ButtonWidth, ButtonHeight);
  PrintButton.Move(CancelButton.Left() - Margin - ButtonWidth, buttons, ButtonWidth, ButtonHeight);
}

void ViewReadmeForm::Form_Load() {
  ReadmeTextbox.SetText(TextToShow(main_.host.files, JoinPath(main_.host.places.ProgramFolder(), "Readme.txt")));
}

void ViewReadmeForm::PrintButton_Click() {
  // The window may be closed while the dialog is up.
  RunPrintJob(main_, [&host = main_.host, text = ReadmeTextbox.Text()] { PrintReadme(host, text); });
}

void ViewReadmeForm::ShowIt(Form& owner) {
  bool read = false;
  const AtExit done([&] {
    if (!read) Window.Unload();
  });
  Window.Load();
  read = true;
  if (!Window.Visible()) Window.CentreOn(&owner);
  Window.ShowOwned(&owner);
}

void ViewReadmeMenuItem_Click(MainForm& main) {
  main.modeless.Get<ViewReadmeForm>(main).ShowIt(main.Window);
}

}  // namespace pixorra
