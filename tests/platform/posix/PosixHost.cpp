// The host's registry, settings, shell and memory, for the contract.
#include "platform/posix/PosixMemory.h"
#include "platform/posix/PosixRegistry.h"
#include "platform/posix/PosixSettings.h"
#include "platform/posix/PosixShell.h"
#include "tests/platform/contract/host/ContractHost.h"
#include "tests/platform/posix/OwnProcess.h"

namespace pixorra {
namespace {

class PosixHost : public ContractHost {
 public:
  Registry& GetRegistry() override { return registry_; }
  Settings& GetSettings() override { return settings_; }
  Memory& GetMemory() override { return memory_; }
  void SetAvailableMemory(std::optional<std::int64_t> bytes) override {
    std::string text = "MemTotal:       99999999 kB\nMemFree:               1 kB\n";
    if (bytes) text += "MemAvailable:   " + std::to_string(*bytes / 1024) + " kB\n";
    drive.Write("C:\\proc\\meminfo", text + "Buffers:               2 kB\n");
  }
  void WithShell(const std::function<void(Shell&)>& body) override {
    InOwnProcess(SessionIn(drive.HostRoot()), [&] {
      PosixShell shell(mapping_, drive.HostPath("C:\\installed"));
      body(shell);
    });
  }

  void AddProgram(const std::string& path) override {
    drive.Write(
        path,
        "#!/bin/sh\nprintf %s \"$1\" > \"$0.heard\"; shift\nfor a; do printf ' %s' \"$a\"; done >> \"$0.heard\"\n");
    drive.SetMode(path, 0755);
  }
  void AddInstalled(const std::string& name) override { AddProgram("C:\\installed\\" + name); }
  std::string AddManual() override {
    const std::string page = "C:\\share\\doc\\pixorra\\manual\\index.html";
    drive.Write(page, "pages");
    return page;
  }
  void RegisterViewer(const std::string& ending) override {
    AddStarter("viewer", "viewer", "Comment=Views\n");
    drive.Write("C:\\share\\mime\\globs2", "50:image/tried:*" + ending + "\n");
    drive.Write("C:\\home\\.config\\mimeapps.list", "[Default Applications]\nimage/tried=viewer.desktop\n");
  }
  void AddOwnWindows() override {
    AddStarter("xscreensaver-settings", "saver", "");
    AddStarter("hardinfo", "machine", "");
  }
  std::string HeardBy(Shell&, const std::string& program) override {
    AwaitPrograms();
    const std::string path = program + ".heard";
    return drive.Exists(path) ? drive.Read(path) : "not started";
  }

 private:
  void AddStarter(const std::string& name, const std::string& program, const std::string& keys) {
    AddProgram("C:\\bin\\" + program);
    drive.Write("C:\\share\\applications\\" + name + ".desktop",
                "[Desktop Entry]\nType=Application\nName=The " + program + "\nExec=" + program + " %f\n" + keys);
  }

  std::shared_ptr<MappingSource> mapping_ =
      std::make_shared<FixedMapping>(PathMapping({{'C', drive.HostRoot(), "Test"}}));
  PosixRegistry registry_{drive.HostPath("C:\\data"), drive.HostPath("C:\\config"), mapping_};
  PosixSettings settings_{drive.HostPath("C:\\config\\pixorra\\settings")};
  PosixMemory memory_{drive.HostRoot()};
};

}  // namespace

std::unique_ptr<ContractHost> MakeContractHost() {
  return std::make_unique<PosixHost>();
}

}  // namespace pixorra
