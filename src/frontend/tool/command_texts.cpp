#include "frontend/tool/command_texts.h"

#include <iostream>

namespace morvex {

bool Refuse(std::string_view message) {
  std::cerr << message << '\n';
  return false;
}

}  // namespace morvex
