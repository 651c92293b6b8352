#include "validation/qel/error_handler.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/qel/qel_fixture.h"

namespace QELLib {
namespace {

std::string Texts(const ErrorHandler& handler) {
  std::string texts;
  for (const ErrorRecord& record : handler.GetRecords())
    texts += record.text + std::to_string(static_cast<int>(record.severity)) + " ";
  return texts;
}

TEST(ErrorHandler, RefusesWhatIsKnownAndForgetsWhatIsGone) {
  ErrorHandler::Create();
  ErrorHandler& handler = *ErrorHandler::Get();
  {
    Container container;
    auto first = std::make_unique<Tag>(0, container, Nox::PString());
    Tag second(1, container, {});
    EXPECT_TRUE(handler.ErrorOnTag("a", first.get()));
    EXPECT_FALSE(handler.WarningOnTag("a", first.get())) << "one text and one target are one record";
    EXPECT_TRUE(handler.ErrorOnTag("a", &second));
    EXPECT_TRUE(handler.InfoOnContainer("a", &container));
    EXPECT_FALSE(handler.Error("a")) << "a global report looks at all records";
    EXPECT_TRUE(handler.Warning("b"));
    EXPECT_FALSE(handler.IsNewText("a"));
    EXPECT_EQ(Texts(handler), "a3 a3 a0 b2 ");
    handler.CopyRecords(handler.GetRecords());
    EXPECT_EQ(Texts(handler), "a3 a3 a0 b2 ");
    first.reset();
    EXPECT_EQ(Texts(handler), "a3 a0 b2 ");
  }
  EXPECT_EQ(Texts(handler), "b2 ");
  EXPECT_TRUE(handler.IsNewText("a"));
  handler.Clear();
  EXPECT_TRUE(handler.Error("b"));
  ErrorHandler::Destroy();
}

}  // namespace
}  // namespace QELLib
