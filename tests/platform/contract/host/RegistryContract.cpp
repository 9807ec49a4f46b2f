// Keys of the folder's menu, on every back end.
#include "tests/platform/contract/host/ContractHost.h"

namespace pixorra {
namespace {

constexpr const char* verbKey = "Folder\\Shell\\Play it";
constexpr const char* commandKey = "Folder\\Shell\\Play it\\Command";

class RegistryContract : public HostContract {
 protected:
  bool Exists(const std::string& key) { return host->GetRegistry().KeyExists(registry::ClassesRoot, key); }
  void Set(const std::string& key) {
    host->GetRegistry().SetKeyValue(registry::ClassesRoot, key, "", "C:\\x.exe 21%L");
  }
  void Delete(const std::string& key) { host->GetRegistry().DeleteKey(registry::ClassesRoot, key); }
};

TEST_F(RegistryContract, NoKeyIsThereBeforeItIsSet) {
  for (const char* key : {"", "Folder", "Folder\\Shell", verbKey, commandKey}) EXPECT_FALSE(Exists(key)) << key;
}

TEST_F(RegistryContract, AKeyExistsWhenOneBelowItDoes) {
  Set(commandKey);
  for (const char* key : {"Folder", "Folder\\Shell", verbKey, commandKey}) EXPECT_TRUE(Exists(key)) << key;
}

TEST_F(RegistryContract, KeysBesideAndBelowASetKeyAreMissing) {
  Set(commandKey);
  for (const char* key : {"", "\\", "Fold", "Folder\\", "Folders", "Folder\\Shell\\Play", "Folder\\Shell\\Play it too",
                          "Folder\\Shell\\Play it\\", "Folder\\Shell\\Play it\\Icon",
                          "Folder\\Shell\\Play it\\Command\\More", "Folder\\\\Shell", "Shell\\Play it"})
    EXPECT_FALSE(Exists(key)) << key;
}

TEST_F(RegistryContract, LetterCaseDoesNotCountInKeys) {
  Set("FOLDER\\shell\\Play IT\\command");
  EXPECT_TRUE(Exists(commandKey));
  EXPECT_TRUE(Exists("folder\\SHELL"));
  Delete("folder\\SHELL\\play it");
  EXPECT_FALSE(Exists("FOLDER\\shell\\Play IT\\command"));
  EXPECT_FALSE(Exists("Folder"));
}

TEST_F(RegistryContract, AKeyIsDeletedWithThoseBelowItAndNoOther) {
  Set(commandKey);
  Set("Folder\\Shell\\Play it all\\Command");
  Delete(verbKey);
  EXPECT_FALSE(Exists(commandKey));
  EXPECT_FALSE(Exists(verbKey));
  EXPECT_TRUE(Exists("Folder\\Shell\\Play it all"));
  Delete("Folder\\Shell");
  EXPECT_FALSE(Exists("Folder\\Shell\\Play it all"));
  EXPECT_FALSE(Exists("Folder"));
}

TEST_F(RegistryContract, DeletingAKeyThatIsMissingDoesNothing) {
  Set(commandKey);
  for (const char* key : {"", "\\", "Folder\\Shell\\Other", "Software\\CLASSES", "Folder\\Shell\\Play it\\Icon"})
    Delete(key);
  EXPECT_TRUE(Exists(commandKey));
}

TEST_F(RegistryContract, SettingAKeyAgainKeepsOne) {
  Set(commandKey);
  Set("folder\\shell\\PLAY IT\\command");
  Delete(verbKey);
  EXPECT_FALSE(Exists("Folder"));
}

TEST_F(RegistryContract, TheClassesRootKnowsNothingOfTheMachines) {
  host->GetRegistry().SetKeyValue(registry::LocalMachine, commandKey, "", "C:\\x.exe 21%L");
  EXPECT_FALSE(Exists(verbKey));
  Set(commandKey);
  host->GetRegistry().DeleteKey(registry::LocalMachine, verbKey);
  EXPECT_TRUE(Exists(verbKey));
}

}  // namespace
}  // namespace pixorra
