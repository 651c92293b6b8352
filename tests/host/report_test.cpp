// The report in a real browser: it stands, searches and sorts.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "tests/host/host_run.h"

namespace {

// Runs headless Chromium on a page and gives what it wrote to standard output.
std::string Browse(const std::string& page, const std::vector<std::string>& more) {
  const ScratchFolder scratch;
  std::vector<std::string> arguments = {"--headless",
                                        "--no-sandbox",
                                        "--disable-gpu",
                                        "--disable-dev-shm-usage",
                                        "--window-size=1400,1000",
                                        "--user-data-dir=" + (scratch / "profile"),
                                        "--virtual-time-budget=3000"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  arguments.push_back("file://" + page);
  const std::string out = scratch / "out";
  const pid_t child = fork();
  if (child == 0) {
    if (freopen(out.c_str(), "w", stdout) == nullptr || freopen("/dev/null", "w", stderr) == nullptr)
      _exit(126);
    Execute(MORVEX_CHROMIUM, arguments);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  return ReadFile(out);
}

// The KUIDs of the rows in sight, in their order.
std::vector<std::string> RowsOf(const std::string& dom) {
  constexpr std::string_view kMark = "data-kuid=\"";
  std::vector<std::string> rows;
  for (size_t at = dom.find(kMark); at != dom.npos; at = dom.find(kMark, at + 1)) {
    const size_t start = at + kMark.size();
    rows.push_back(dom.substr(start, dom.find('"', start) - start));
  }
  return rows;
}

std::vector<std::string> Reversed(std::vector<std::string> rows) {
  std::reverse(rows.begin(), rows.end());
  return rows;
}

TEST(Report, OpensSearchesAndSortsInABrowser) {
  ASSERT_STRNE(MORVEX_CHROMIUM, "") << "The Debian package chromium is missing.";
  const HostInstallation place;
  place.Install("bahnwaerterhaus", "<kuid:523841:1014>");
  place.Install("bogey_vs41_3axle", "<kuid:523841:1001>");
  place.Install("faulty/below_zero", "<kuid:523841:2013>");
  place.Install("faulty/asset_not_here", "<kuid:523841:2028>");
  const std::string evil = place / "evil";
  WriteFile(evil + "/config.txt",
            "kuid <kuid:1:1>\nkind \"scenery\"\nusername \"</script><script>document.title='X'</script>\"\n");
  ASSERT_EQ(place.Run({"installfrompath", evil}).code, 0);
  const std::string page = place / "report.html";
  ASSERT_EQ(place.Host({"report", page, "--title", "A <b> title"}).code, 0);
  EXPECT_NE(ReadFile(page).find("mass' must not be negative"), std::string::npos);

  const std::string all = Browse(page + "#sort=-size", {"--dump-dom"});
  EXPECT_NE(all.find("data-ready="), std::string::npos);
  EXPECT_NE(all.find("<title>A &lt;b&gt; title</title>"), std::string::npos);
  const std::vector<std::string> bySize = RowsOf(all);
  ASSERT_EQ(bySize.size(), 5u);
  EXPECT_EQ(bySize, Reversed(RowsOf(Browse(page + "#sort=size", {"--dump-dom"}))));
  EXPECT_EQ(bySize.back(), "&lt;kuid:1:1&gt;");
  EXPECT_NE(all.find("data:image/jpeg;base64,"), std::string::npos);

  const std::string found = Browse(page + "#q=bogey", {"--dump-dom"});
  EXPECT_EQ(RowsOf(found), std::vector<std::string>{"&lt;kuid:523841:1001&gt;"});
  EXPECT_NE(found.find(">1 of 5<"), std::string::npos);
  EXPECT_EQ(RowsOf(Browse(page + "#problem=e", {"--dump-dom"})),
            std::vector<std::string>{"&lt;kuid:523841:2013&gt;"});
  EXPECT_EQ(RowsOf(Browse(page + "#view=missing", {"--dump-dom"})),
            std::vector<std::string>{"&lt;kuid:523841:9999&gt;"});

  const std::string picture = place / "report.png";
  Browse(page, {"--screenshot=" + picture});
  EXPECT_GT(ReadFile(picture).size(), 10'000u);
}

}  // namespace
