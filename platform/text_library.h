// A loaded language library: user-interface texts by number.
#pragma once

namespace tw {

class TextLibrary {
 public:
  virtual ~TextLibrary() = default;
  // LoadStringW: copies at most capacity - 1 characters and a terminator;
  // returns the number copied, 0 when the id is missing.
  virtual int Lookup(unsigned id, char16_t* buffer, int capacity) const = 0;
};

}  // namespace tw
