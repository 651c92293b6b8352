#include "net/transfer/multipart_form.h"

#include "net/transfer/line_block.h"

namespace morvex {
namespace {

const Nox::PString kFileData("filedata");
const Nox::PString kFileName("filename");

}  // namespace

MultipartForm::MultipartForm(const TagContainer& form) {
  for (std::uint32_t i = 0; i < form.GetCount(); ++i) {
    const Nox::PString name = form.GetName(i);
    const TagContainer file = form.GetContainerAt(i);
    if (file.HasTag(kFileData) && file.HasTag(kFileName)) {
      AddFile(name, file.GetText(kFileName), RawBytes(file.GetRaw(kFileData)));
    } else {
      AddText(name, form.GetText(name));
    }
  }
  text_ += "--";
  text_ += kBoundary;
  text_ += "--\r\n";
}

void MultipartForm::AddFile(std::string_view name, std::string_view fileName, std::string_view data) {
  LineBlock head;
  head.Add("--%s\r\n", kBoundary);
  head.Add("content-disposition: form-data; name=\"%s\"; filename=\"%s\"\r\n", name, fileName);
  head.Add("Content-type: application/binary\r\n");
  head.Add("Content-Transfer-Encoding: binary\r\n");
  head.Add("Content-Length: %d\r\n", data.size());
  head.Add("\r\n");
  AddLines(head);
  text_.append(data).append("\r\n");
}

void MultipartForm::AddText(std::string_view name, std::string_view value) {
  LineBlock head;
  head.Add("--%s\r\n", kBoundary);
  head.Add("content-disposition: form-data; name=\"%s\"\r\n", name);
  head.Add("\r\n");
  AddLines(head);
  text_.append(value).append("\r\n");
}

void MultipartForm::AddLines(const LineBlock& lines) {
  refused_ = refused_ || lines.Refused();
  text_ += lines.Text();
}

}  // namespace morvex
