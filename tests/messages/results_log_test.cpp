#include "frontend/messages/results_log.h"

#include <gtest/gtest.h>

#include "frontend/messages/asset_message.h"

namespace morvex {
namespace {

TEST(ResultsLog, PrintsAllEntriesEachTime) {
  ResultsLog log;
  EXPECT_EQ(log.TakePrintedForm(), "OK (0 Errors, 0 Warnings)\n");

  const MorvexPropertyPtr asset = AssetSubject(KUID(100, 200, 3));
  log.Add(Severity::kWarning, MorvexPropertyPtr(), "no subject, %d%% %s", 0, 5, "full");
  log.Add(Severity::kError, asset, "%s has %d faults %n", 0, "<kuid:1:2>", 3);
  EXPECT_FALSE(log.IsUnchanged());
  const std::string first =
      "! <NULL> : no subject, 5% full\n"
      "- <kuid2:100:200:3> : <kuid:1:2> has 3 faults %n\n";
  EXPECT_EQ(log.TakePrintedForm(), first + "OK (1 Errors, 1 Warnings)\n");
  EXPECT_TRUE(log.IsUnchanged());

  log.Add(Severity::kNote, asset, "done", 0);
  log.Add(Severity::kInformation, asset, "by the way", 0);
  log.Add(static_cast<Severity>(9), asset, "what", 0);
  const std::string second = first +
                             "+ <kuid2:100:200:3> : done\n"
                             "; <kuid2:100:200:3> : by the way\n"
                             "<kuid2:100:200:3> : what\n"
                             "OK (1 Errors, 1 Warnings)\n";
  EXPECT_EQ(log.TakePrintedForm(), second);

  ResultsLog copy(log);
  log.Add(Severity::kError, asset, "only here", 0);
  EXPECT_EQ(copy.TakePrintedForm(), second);
  EXPECT_EQ(copy.ErrorCount() + copy.WarningCount() + copy.NoteCount(), 3u);
  copy = log;
  EXPECT_EQ(copy.ErrorCount(), 2u);
}

}  // namespace
}  // namespace morvex
