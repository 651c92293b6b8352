#pragma once

namespace morvex {
class TagContainer;
}

namespace QELLib {

// Brings the old and loose spellings of a configuration's common tags to the present ones, in place.
void NormaliseConfig(morvex::TagContainer& config);

}  // namespace QELLib
