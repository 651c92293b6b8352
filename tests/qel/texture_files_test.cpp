#include "validation/qel/texture_files.h"

#include "tests/qel/image_files.h"
#include "tests/qel/qel_fixture.h"

namespace QELLib {
namespace {

using TextureFilesTest = QelTest;

TEST_F(TextureFilesTest, ImagesAreThereAndFit) {
  // The text of a.texture.txt; entries and files of what is found, with "!" for a false result.
  const char* const rows[][2] = {
      {"", ""},
      {"Tile=st\nprimary=none.tga\n", ""},
      {"Primary=Good.TGA\r\nAlpha=good.bmp\r\n", ""},
      {"Primary good.jpg", ""},
      {"Primary=other.texture", "! 186 other.texture.txt"},
      {"Primary=none.tga\nAlpha=odd.bmp", "! 133 none.tga 190 odd.bmp"},
      {"Primary=odd.bmp", "! 190 odd.bmp"},
      {"Primary=broken.tga\nAlpha=none.tga", "! 191 broken.tga"},
      {"Primary=picture.png", "! 191 picture.png"},
      {"Alpha=broken.tga", "! 191 broken.tga"},
      {"Primary=good.tga\nAlpha=small.tga", "! 189 a.texture.txt"},
      {"Primary=none.tga\nAlpha=small.tga", "! 133 none.tga"},
  };
  Start();
  const std::string folder = "local/asset/art/deep/";
  Write(folder + "good.tga", TgaImage(8, 8));
  Write(folder + "good.bmp", BmpImage(8, 8));
  Write(folder + "good.jpg", JpegImage());
  Write(folder + "other.texture", "binary");
  Write(folder + "small.tga", TgaImage(4, 4));
  Write(folder + "odd.bmp", BmpImage(100, 128));
  Write(folder + "broken.tga", TgaImage(8, 8).substr(0, 100));
  Write(folder + "picture.png", "png");
  for (const auto& [text, expected] : rows) {
    Write(folder + "a.texture.txt", text);
    const bool namesTexture = std::string_view(text).find("texture") != std::string_view::npos;
    if (namesTexture) Write(folder + "other.texture.txt", "Primary=good.tga\n");
    ErrorHandler::Get()->Clear();
    std::string findings = CheckTextureFiles({{}, root_ / "local/asset"}) ? "" : "!";
    for (const ErrorRecord& record : ErrorHandler::Get()->GetRecords()) {
      const std::string path = record.text.substr(4, record.text.find(" %s") - 4);
      findings += " " + record.text.substr(0, 4) + std::filesystem::path(path).filename().string();
    }
    EXPECT_EQ(findings, expected) << text;
    std::filesystem::remove(root_ / (folder + "other.texture.txt"));
  }
}

}  // namespace
}  // namespace QELLib
