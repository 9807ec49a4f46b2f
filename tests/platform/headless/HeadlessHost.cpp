// The registry, settings, shell and memory without a desktop, for the contract.
#include "platform/headless/HeadlessMemory.h"
#include "platform/headless/HeadlessRegistry.h"
#include "platform/headless/HeadlessSettings.h"
#include "platform/headless/HeadlessShell.h"
#include "tests/platform/contract/host/ContractHost.h"

namespace pixorra {
namespace {

class HeadlessHost : public ContractHost {
 public:
  HeadlessHost() { shell_.SetFiles(drive.DriveFiles()); }
  Registry& GetRegistry() override { return registry_; }
  Settings& GetSettings() override { return settings_; }
  Memory& GetMemory() override { return memory_; }
  void SetAvailableMemory(std::optional<std::int64_t> bytes) override { memory_.SetAvailable(bytes); }
  void WithShell(const std::function<void(Shell&)>& body) override { body(shell_); }

  void AddProgram(const std::string& path) override { drive.Write(path, "a program"); }
  void AddInstalled(const std::string& name) override { shell_.AddInstalled(name); }
  std::string AddManual() override {
    const std::string page = "C:\\manual\\index.html";
    drive.Write(page, "pages");
    shell_.SetManual(page);
    return page;
  }
  void RegisterViewer(const std::string& ending) override {
    shell_.RegisterProgram(ending, "C:\\bin\\viewer",
                           {.FileDescription = "Views",
                            .InternalName = "viewer",
                            .OriginalFileName = "viewer",
                            .ProductName = "The viewer"});
  }
  void AddOwnWindows() override { shell_.SetHasOwnWindows(true); }
  std::string HeardBy(Shell&, const std::string& program) override {
    const std::string start = program + ' ';
    for (const std::string& command : shell_.AllRun())
      if (command.starts_with(start)) return command.substr(start.size());
    return "not started";
  }

 private:
  HeadlessRegistry registry_;
  HeadlessSettings settings_;
  HeadlessMemory memory_;
  HeadlessShell shell_;
};

}  // namespace

std::unique_ptr<ContractHost> MakeContractHost() {
  return std::make_unique<HeadlessHost>();
}

}  // namespace pixorra
