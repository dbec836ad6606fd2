// The start-up breakdown. With TIDEWELL_TRACE naming a file, the program
// notes the time at which each start-up step ends and writes the list there
// once its first paint is over. Without it every call returns at its first
// test: nothing is timed, formatted or written, so the start-up measured is
// the one users get.
//
// A line of the file: the step, the milliseconds from the process's creation
// to its end, the milliseconds it took, then what it spent in the tallies
// below, e.g. "settings<TAB>61.2<TAB>9.4<TAB>registry 96 calls 3.1 ms".
#pragma once

#include "platform/registry.h"

namespace tw::trace {

// Work counted and timed wherever it happens, reported with the step it fell in.
enum Tally { kRegistryTally, kCommonControlsTally, kTallyCount };

// Reads the switch; the first thing the program does.
void Start();
bool On();
// Ends the step that began where the previous one ended; note may be null.
void Step(const char* name, const char* note = nullptr);
// Writes the file. Later steps are not recorded.
void Finish();

// Adds its lifetime and one call to a tally, when the trace is on.
class Timed {
 public:
  explicit Timed(Tally tally);
  ~Timed();
  Timed(const Timed&) = delete;
  Timed& operator=(const Timed&) = delete;

 private:
  Tally tally_;
  long long start_ = 0;
};

// Passes every call to the registry behind it and counts it in the registry tally.
class TracedRegistry final : public Registry {
 public:
  explicit TracedRegistry(Registry& inner) : inner_(inner) {}
  long Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) override;
  long Close(RegKey key) override;
  long Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
             std::uint32_t& size) override;
  long Set(RegKey key, std::u16string_view name, std::uint32_t type, const void* data,
           std::uint32_t size) override;
  long DeleteValue(RegKey key, std::u16string_view name) override;
  long EnumValue(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars,
                 std::uint32_t& type, void* data, std::uint32_t& dataSize) override;
  long EnumKey(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars) override;
  long DeleteTree(RegKey parent, std::u16string_view subkey) override;

 private:
  Registry& inner_;
};

}  // namespace tw::trace
