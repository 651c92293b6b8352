#include "host/command.h"

namespace morvex::host {

namespace {

constexpr Command kCommands[] = {
    {"list", "List assets, with filters", &DeclareList},
    {"show", "Show what is known of assets", &DeclareShow},
    {"deps", "Show what an asset needs, or who needs it", &DeclareDeps},
    {"validate", "Check assets and tell every finding", &DeclareValidate},
    {"clone", "Make a new asset or a new version out of one", &DeclareClone},
    {"package", "Look into package files, check and unpack them", &DeclarePackage},
    {"convert", "Convert a file between text and chunk form", &DeclareConvert},
    {"mesh", "Show what is in a mesh file, and draw it", &DeclareMesh},
    {"report", "Write the whole installation as one web page", &DeclareReport},
    {"archive", "Take assets into archive files and back", &DeclareArchive},
    {"station", "Ask the download station", &DeclareStation},
    {"upload", "Send assets to the download station", &DeclareUpload},
    {"fetch", "Fetch a file from the network", &DeclareFetch},
    {"completion", "Print the completion script of a shell", &DeclareCompletion},
};

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

}  // namespace morvex::host
