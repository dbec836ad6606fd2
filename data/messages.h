// A message box as the language library gives it: text and caption by number.
#pragma once

namespace tw {

struct MessagePair {
  unsigned text = 0;
  unsigned caption = 0;

  bool operator==(const MessagePair&) const = default;
};

inline constexpr MessagePair kNoMessage{};

}  // namespace tw
