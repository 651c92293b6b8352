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

TEST(ErrorHandler, RefusesWhatIsKnown) {
  Container container;
  Tag first(0, container, {}), second(1, container, {});
  ErrorHandler handler;
  EXPECT_TRUE(handler.IsNewText("a"));
  EXPECT_TRUE(handler.ErrorOnTag("a", &first));
  EXPECT_FALSE(handler.WarningOnTag("a", &first)) << "one text and one target are one record";
  EXPECT_TRUE(handler.ErrorOnTag("a", &second));
  EXPECT_TRUE(handler.InfoOnContainer("a", &container));
  EXPECT_FALSE(handler.Error("a")) << "a global report looks at all records";
  EXPECT_TRUE(handler.Warning("b"));
  EXPECT_FALSE(handler.IsNewText("a"));
  EXPECT_EQ(Texts(handler), "a3 a3 a0 b2 ");
  handler.CopyRecords(handler.GetRecords());
  EXPECT_EQ(Texts(handler), "a3 a3 a0 b2 ");
  handler.Clear();
  EXPECT_TRUE(handler.Error("a"));
}

TEST(ErrorHandler, RecordsGoWithTheirTarget) {
  ErrorHandler::Create();
  ErrorHandler& handler = *ErrorHandler::Get();
  {
    Container container;
    auto tag = std::make_unique<Tag>(0, container, Nox::PString());
    handler.ErrorOnContainer("1", &container);
    handler.ErrorOnTag("2", tag.get());
    handler.Error("3");
    handler.WarningOnTag("4", tag.get());
    tag.reset();
    EXPECT_EQ(Texts(handler), "13 33 ");
    EXPECT_TRUE(handler.IsNewText("2"));
  }
  EXPECT_EQ(Texts(handler), "33 ");
  ErrorHandler::Destroy();
}

}  // namespace
}  // namespace QELLib
