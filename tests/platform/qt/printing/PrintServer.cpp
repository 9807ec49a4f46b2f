#include "tests/platform/qt/printing/PrintServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QThread>
#include <arpa/inet.h>
#include <csignal>
#include <cups/cups.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/qt/printing/CupsServer.h"

namespace pixorra {

namespace {

constexpr int Patience = 20000;  // milliseconds
// Nobody listens there.
constexpr const char* NoServer = "127.0.0.1:1";

constexpr const char* ServerSettings = R"(Listen 127.0.0.1:PORT
LogLevel warn
Browsing No
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

constexpr const char* ServerFiles = R"(ServerRoot FOLDER/root
ServerBin FOLDER/bin
RequestRoot FOLDER/spool
TempDir FOLDER/spool/tmp
CacheDir FOLDER/cache
StateDir FOLDER/state
DocumentRoot FOLDER/root
AccessLog FOLDER/access_log
ErrorLog FOLDER/error_log
PageLog FOLDER/page_log
Sandboxing relaxed
)";

// Is given the job's number, user, title, copies, options and file; the title is written last.
constexpr const char* KeepingDevice = R"(#!/bin/sh
[ $# -eq 0 ] && exit 0
cat "$6" > "FOLDER/out/$1.pdf"
echo "$4" > "FOLDER/out/$1.copies"
echo "$5" > "FOLDER/out/$1.options"
echo "$3" > "FOLDER/out/title.part"
mv "FOLDER/out/title.part" "FOLDER/out/$1.title"
)";

constexpr const char* Description = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "OFFICE.PPD"
*Product: "(Office)"
*Manufacturer: "Test"
*ModelName: "Test Office"
*ShortNickName: "Test Office"
*NickName: "Test Office"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*PageSize 4x6/4 x 6 in: "<</PageSize[288 432]>>setpagedevice"
*PageSize Tag/Tag: "<</PageSize[100 200]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageRegion Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*PageRegion 4x6/4 x 6 in: "<</PageSize[288 432]>>setpagedevice"
*PageRegion Tag/Tag: "<</PageSize[100 200]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "10 36 585 830"
*ImageableArea Letter/Letter: "10 36 602 780"
*ImageableArea 4x6/4 x 6 in: "0 0 288 432"
*ImageableArea Tag/Tag: "80 110 90 190"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/Letter: "612 792"
*PaperDimension 4x6/4 x 6 in: "288 432"
*PaperDimension Tag/Tag: "100 200"
*OpenUI *Resolution/Resolution: PickOne
*DefaultResolution: 600dpi
*Resolution 600dpi/600 dpi: "<</HWResolution[600 600]>>setpagedevice"
*CloseUI: *Resolution
*DefaultFont: Courier
*Font Courier: Standard "(1.0)" Standard ROM
)PPD";

QString Tool(const QString& name) {
  const QString found = QStandardPaths::findExecutable(name);
  return found.isEmpty() ? QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin")}) : found;
}

bool Until(const std::function<bool()>& holds) {
  QElapsedTimer waited;
  for (waited.start(); waited.elapsed() < Patience; QThread::msleep(20)) {
    if (holds()) return true;
  }
  return false;
}

}  // namespace

MutePort::MutePort() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0)) {
  sockaddr_in at{};
  at.sin_family = AF_INET;
  at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof at;
  if (bind(socket_, reinterpret_cast<sockaddr*>(&at), size) == 0 && listen(socket_, 8) == 0 &&
      getsockname(socket_, reinterpret_cast<sockaddr*>(&at), &size) == 0) {
    number_ = ntohs(at.sin_port);
  }
}

MutePort::~MutePort() {
  close(socket_);
}

int MutePort::Calls() {
  int calls = 0;
  for (int caller = -1; (caller = accept(socket_, nullptr, nullptr)) >= 0; close(caller)) ++calls;
  return calls;
}

PrintServer::PrintServer() : whyNot_(Start()) {}

PrintServer::~PrintServer() {
  Stop();
  cupsSetServer(NoServer);
}

std::string PrintServer::Start() {
  if (geteuid() != 0) return "a print server of its own needs root";
  for (const char* tool : {"cupsd", "lpadmin", "cupsdisable", "cupsreject", "pdfinfo"}) {
    if (Tool(QLatin1String(tool)).isEmpty()) return std::string("there is no ") + tool;
  }
  port_ = MutePort().Number();
  WriteSettings();
  server_.start(Tool(QStringLiteral("cupsd")), {"-f", "-c", In("cupsd.conf"), "-s", In("cups-files.conf")});
  if (!server_.waitForStarted()) return "the print server does not start";
  cupsSetServer(QStringLiteral("127.0.0.1:%1").arg(port_).toUtf8().constData());
  if (!Until([] { return CupsServer::Reach() != nullptr; })) {
    return "the print server does not answer: " + Read("error_log").toStdString();
  }
  AddOffice();
  return {};
}

void PrintServer::AddOffice() const {
  Administer("lpadmin", {"-p", "Office", "-E", "-v", "keep:/", "-P", In("office.ppd")});
  Administer("lpadmin", {"-d", "Office"});
}

void PrintServer::Hang() const {
  kill(static_cast<pid_t>(server_.processId()), SIGSTOP);
}

void PrintServer::GoOn() const {
  kill(static_cast<pid_t>(server_.processId()), SIGCONT);
}

void PrintServer::Stop() {
  if (server_.state() == QProcess::NotRunning) return;
  GoOn();
  server_.terminate();
  if (!server_.waitForFinished(Patience)) server_.kill();
}

QString PrintServer::Read(const QString& name) const {
  QFile file(In(name));
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

void PrintServer::Write(const QString& name, QString text) const {
  text.replace("FOLDER", folder_.path()).replace("PORT", QString::number(port_));
  QFile file(In(name));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text.toUtf8());
}

void PrintServer::WriteSettings() const {
  QFile::setPermissions(folder_.path(), QFileDevice::Permissions(0x7755));
  for (const char* part : {"root", "spool/tmp", "cache", "state", "out", "bin/backend", "bin/filter"}) {
    QDir(folder_.path()).mkpath(part);
  }
  QFile::link("/usr/lib/cups/daemon", In("bin/daemon"));
  Write("cupsd.conf", ServerSettings);
  Write("cups-files.conf", ServerFiles);
  Write("office.ppd", Description);
  Write("bin/backend/keep", KeepingDevice);
  QFile::setPermissions(In("bin/backend/keep"), QFileDevice::Permissions(0x7700));
}

void PrintServer::Administer(const QString& tool, const QStringList& arguments) const {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(Tool(tool), QStringList{"-h", QStringLiteral("127.0.0.1:%1").arg(port_)} + arguments);
  ASSERT_TRUE(process.waitForFinished(Patience));
  EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
}

int PrintServer::PagesOf(int job) const {
  if (!Until([&] { return QFile::exists(In(QStringLiteral("out/%1.title").arg(job))); })) return 0;
  return Info(job, QStringLiteral("Pages")).toInt();
}

QString PrintServer::Info(int job, const QString& field) const {
  QProcess process;
  process.start("pdfinfo", {PathOf(job)});
  process.waitForFinished();
  for (const QString& line : QString::fromUtf8(process.readAll()).split('\n')) {
    if (line.startsWith(field + ":")) return line.section(':', 1).trimmed();
  }
  return {};
}

bool PrintServer::HasNothing() const {
  return QDir(In("out")).isEmpty();
}

bool PrintServer::BecomesIdle() const {
  return Until([] {
    cups_job_t* jobs = nullptr;
    const int count = cupsGetJobs(&jobs, nullptr, 0, CUPS_WHICHJOBS_ACTIVE);
    cupsFreeJobs(count, jobs);
    return count == 0;
  });
}

}  // namespace pixorra
