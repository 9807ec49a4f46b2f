// What a back end must offer so that its registry, settings, shell and memory are held to the contract. Each test
// program that builds these tests defines MakeContractHost for its own back end.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

#include "platform/services/Memory.h"
#include "platform/services/Registry.h"
#include "platform/services/Settings.h"
#include "platform/services/Shell.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {

class ContractHost {
 public:
  virtual ~ContractHost() = default;

  virtual Registry& GetRegistry() = 0;
  virtual Settings& GetSettings() = 0;
  virtual Memory& GetMemory() = 0;
  // From here on the host has so many bytes left, in whole kibibytes; or does not say.
  virtual void SetAvailableMemory(std::optional<std::int64_t> bytes) = 0;
  // A host may read its desktop once for each process: what is registered later than the first call may not count.
  virtual void WithShell(const std::function<void(Shell&)>& body) = 0;

  // Puts a program on the drive that runs.
  virtual void AddProgram(const std::string& path) = 0;
  // Puts a program with this name among those that were installed with this one.
  virtual void AddInstalled(const std::string& name) = 0;
  // Installs a manual with this program. Returns its first page.
  virtual std::string AddManual() = 0;
  // Lets the program "C:\bin\viewer", which calls itself "The viewer" and "Views", open files that end so.
  virtual void RegisterViewer(const std::string& ending) = 0;
  virtual void AddOwnWindows() = 0;
  // What the program of this path was started with, blank parted. For use inside WithShell.
  virtual std::string HeardBy(Shell& shell, const std::string& program) = 0;

  TemporaryDrive drive;
};

std::unique_ptr<ContractHost> MakeContractHost();

class HostContract : public ::testing::Test {
 protected:
  std::unique_ptr<ContractHost> host = MakeContractHost();
};

}  // namespace pixorra
