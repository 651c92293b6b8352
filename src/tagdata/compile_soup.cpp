#include <cstdio>

#include "tagdata/tag_container.h"

// compile_soup <from> <to>: reads a soup and writes it in the form that the new name's extension asks for.
// The build makes the binary interface texts with it.
int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: compile_soup <from> <to>\n");
    return 2;
  }
  morvex::TagContainer soup;
  if (!soup.Load(Nox::PString(), argv[1]) || soup.IsEmpty()) {
    std::fprintf(stderr, "compile_soup: can't read %s\n", argv[1]);
    return 1;
  }
  if (!soup.Save(Nox::PString(), argv[2])) {
    std::fprintf(stderr, "compile_soup: can't write %s\n", argv[2]);
    return 1;
  }
  return 0;
}
