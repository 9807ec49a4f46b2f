// A print server of the test's own on this machine, for its lifetime, with the printer "Office" that keeps what it
// gets.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <string>

namespace pixorra {

// A port of this machine that listens, and never answers.
class MutePort {
 public:
  MutePort();
  ~MutePort();
  MutePort(const MutePort&) = delete;
  MutePort& operator=(const MutePort&) = delete;
  int Number() const { return number_; }
  // The calls since it was last asked.
  int Calls();

 private:
  int socket_;
  int number_ = 0;
};

class PrintServer {
 public:
  PrintServer();
  ~PrintServer();
  PrintServer(const PrintServer&) = delete;
  PrintServer& operator=(const PrintServer&) = delete;

  // Empty where it runs.
  const std::string& WhyNot() const { return whyNot_; }
  // What it says of "Office", for further printers.
  QString DescriptionFile() const { return In("office.ppd"); }
  int Port() const { return port_; }
  void Stop();
  // It hangs: it is there, and answers nothing.
  void Hang() const;
  void GoOn() const;
  // After it has been deleted; it is there at first.
  void AddOffice() const;
  // One of the print system's own tools.
  void Administer(const QString& tool, const QStringList& arguments) const;

  // What the printer got as this job, by its number from 1: the number of its pages, 0 where it does not come.
  int PagesOf(int job) const;
  // The file that holds it.
  QString PathOf(int job) const { return In(QStringLiteral("out/%1.pdf").arg(job)); }
  // A line of what is known of the document.
  QString Info(int job, const QString& field) const;
  QString Title(int job) const { return Read(QStringLiteral("out/%1.title").arg(job)); }
  int Copies(int job) const { return Read(QStringLiteral("out/%1.copies").arg(job)).toInt(); }
  QStringList Options(int job) const { return Read(QStringLiteral("out/%1.options").arg(job)).split(' '); }
  bool HasNothing() const;
  // No job is left at the server that is not done; false where that does not come about.
  bool BecomesIdle() const;

 private:
  std::string Start();
  QString In(const QString& name) const { return folder_.filePath(name); }
  QString Read(const QString& name) const;
  void Write(const QString& name, QString text) const;
  void WriteSettings() const;

  QTemporaryDir folder_{QStringLiteral("/tmp/pixorra-cups-XXXXXX")};
  QProcess server_;
  int port_ = 0;
  std::string whyNot_;
};

}  // namespace pixorra
