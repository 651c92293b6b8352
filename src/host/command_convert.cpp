// convert: a file of tags between its text form and its binary form.

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "engine/file.h"
#include "host/command.h"
#include "host/host.h"
#include "host/json_writer.h"
#include "host/paths.h"
#include "tagdata/tag_container.h"

namespace morvex::host {

namespace {

struct Options {
  std::string in;
  std::string out;
};

constexpr const char* kKnownForms =
    "Its name must end in .txt for the text form, in .chump or .cdp for the chunk form.";

ExitCode Convert(Host& host, const Options& options) {
  const std::string in = AbsolutePath(options.in);
  const std::string out = AbsolutePath(options.out);
  const auto about = [](const std::string& name, std::string_view what) {
    return "\"" + name + "\" " + std::string(what);
  };
  if (SoupFormatOf(in, {}) == SoupFormat::kNone)
    return host.Fail(ExitCode::kUsage, about(options.in, "can't be read. ") + kKnownForms);
  if (SoupFormatOf(out, {}) == SoupFormat::kNone)
    return host.Fail(ExitCode::kUsage, about(options.out, "can't be written. ") + kKnownForms);

  TagContainer soup;
  if (!soup.Load({}, in))
    return host.Fail(ExitCode::kNotFound,
                     about(options.in, "can't be opened. Check that it is there and may be read."));
  if (soup.IsEmpty())
    return host.Fail(ExitCode::kNotFound,
                     about(options.in, "holds no tags: it is empty, damaged, or of another kind."));
  if (!soup.Save({}, out))
    return host.Fail(ExitCode::kFailed,
                     about(options.out, "couldn't be written. Check its folder and the free space."));
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    json.BeginObject()
        .Key("in")
        .Text(in)
        .Key("out")
        .Text(out)
        .Key("tags")
        .Number(soup.GetCount())
        .EndObject();
  }
  return ExitCode::kSuccess;
}

}  // namespace

void DeclareConvert(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  command.add_option("in", options->in, "File to read: .txt, .chump or .cdp")->required()->type_name("FILE");
  command.add_option("out", options->out, "File to write; an old one is replaced")
      ->required()
      ->type_name("FILE");
  command.footer("Example:\n  MorvexHost convert config.chump config.txt");
  command.callback([options, &run] { run = [options](Host& host) { return Convert(host, *options); }; });
}

}  // namespace morvex::host
