#pragma once

#include <string_view>
#include <vector>

namespace morvex {

// Something that messages are sent to and that passes them on to the recipients linked to it. Links aren't
// owned; a recipient outlives the links to it.
class NuMessageRecipient {
 public:
  NuMessageRecipient() = default;
  NuMessageRecipient(const NuMessageRecipient&) = delete;
  NuMessageRecipient& operator=(const NuMessageRecipient&) = delete;

  // Handles one message, told by its name.
  virtual int HandleMessage(std::string_view message);
  // Sends a message on to all links.
  virtual void ForwardMessage(std::string_view message);
  virtual ~NuMessageRecipient();

  void Link(NuMessageRecipient& recipient) { links_.push_back(&recipient); }
  void UnlinkAll() { links_.clear(); }

 private:
  std::vector<NuMessageRecipient*> links_;
};

}  // namespace morvex
