// report: the installation as one web page.

#include <CLI/CLI.hpp>
#include <ctime>
#include <memory>
#include <streambuf>
#include <string>

#include "database/catalogue/kuid_generator.h"
#include "engine/format.h"
#include "engine/replace_file.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/interrupt.h"
#include "host/json_writer.h"
#include "host/paths.h"
#include "host/report_data.h"
#include "host/report_page.h"

namespace morvex::host {

namespace {

struct Options {
  std::string out;
  std::string title = "Installed assets";
  ReportScope scope;
};

// A stream into a file that takes its place when all of it is there.
class FileBuffer final : public std::streambuf {
 public:
  explicit FileBuffer(Nox::ReplaceFile& file) : file_(file) {}

 protected:
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    return file_.Write(std::string_view(text, static_cast<size_t>(count))) ? count : 0;
  }
  int_type overflow(int_type byte) override {
    const char c = traits_type::to_char_type(byte);
    return xsputn(&c, 1) == 1 ? byte : traits_type::eof();
  }

 private:
  Nox::ReplaceFile& file_;
};

bool WriteFile(const std::string& path, const ReportHead& head, const ReportData& data) {
  Nox::ReplaceFile file;
  if (!file.Open(path)) return false;
  FileBuffer buffer(file);
  std::ostream out(&buffer);
  WriteReportPage(out, head, data);
  return out.good() && file.Commit();
}

std::string Subtitle() {
  const auto now = static_cast<uint64_t>(std::time(nullptr));
  return Nox::FormatText("%s \xC2\xB7 %s", ZEBRoot(), TimeText(now));
}

ExitCode Report(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  ReportData data = GatherReport(host.console(), options.scope);
  const ReportHead head = {options.title, Subtitle()};
  // The rest takes its time, and others may want the installation.
  host.LetOthersIn();
  AddThumbnails(host.console(), data);
  if (IsInterrupted()) return ExitCode::kInterrupted;

  const std::string path = AbsolutePath(options.out);
  if (!WriteFile(path, head, data)) {
    return host.Fail(ExitCode::kFailed,
                     "\"" + options.out + "\" couldn't be written. Check its folder and the free space.");
  }
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject().Key("path").Text(path);
    json.Key("assets").Number(static_cast<int64_t>(data.assets.size()));
    json.Key("missing").Number(static_cast<int64_t>(data.missing.size())).EndObject();
  } else {
    host.console().Note(CountText(data.assets.size()) + " assets in \"" + path + "\". Open it in a browser.");
  }
  return ExitCode::kSuccess;
}

}  // namespace

void DeclareReport(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  command.add_option("out", options->out, "HTML file to write; an old one is replaced")
      ->required()
      ->type_name("FILE");
  command.add_option("--title", options->title, "Heading of the page")->type_name("TEXT");
  command.add_flag(
      "--validate", options->scope.validateAll,
      "Check every asset for the words of its findings; otherwise those that are known to be faulty");
  command.add_flag("--all", options->scope.allKnown, "Also assets that are known and not installed");
  command.footer("Example:\n  MorvexHost report ~/railway.html");
  command.callback([options, &run] { run = [options](Host& host) { return Report(host, *options); }; });
}

}  // namespace morvex::host
