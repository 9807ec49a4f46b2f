// One application serves all tests of a test program, as the toolkit below wants it.
#include <QApplication>
#include <gtest/gtest.h>
#include <memory>

namespace pixorra {
namespace {

class ApplicationEnvironment final : public ::testing::Environment {
 public:
  void SetUp() override { application_ = std::make_unique<QApplication>(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[8] = "pixorra";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const added = ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

}  // namespace
}  // namespace pixorra
