#pragma once

#include <string>

namespace morvex {

// Makes the file names of all asset folders at and below `path` safe: characters that the system can't take are
// replaced in the names and in every mention of them inside the assets' text, mesh and model files. A folder
// with a "config.txt" is an asset. Tells what it does on standard output, and reads one line of standard input
// behind each folder that is no asset. Nothing stops the walk. For the main thread.
void UpdateAssetFolders(const std::string& path);

// The byte that stands for `byte` in a safe name.
char FixNameChar(char byte);

}  // namespace morvex
