#pragma once

#include <fstream>
#include <iterator>
#include <string>

// Files of the tests, written and read without the code that is tested.

inline void PutFile(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

inline std::string GetFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}
