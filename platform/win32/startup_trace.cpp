#include "platform/win32/startup_trace.h"

#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace tw::trace {
namespace {

struct Count {
  int calls = 0;
  long long ticks = 0;
};

struct Record {
  const char* name;
  long long ticks;
  Count tallies[kTallyCount];
  std::string note;
};

constexpr const char* kTallyNames[kTallyCount] = {"registry", "comctl32"};

struct State {
  bool on = false;
  bool finished = false;
  std::wstring path;
  LARGE_INTEGER frequency = {};
  long long origin = 0;  // the process's creation, in counter ticks
  Count tallies[kTallyCount];
  std::vector<Record> records;
};

State& Trace() {
  static State state;
  return state;
}

long long Ticks() {
  LARGE_INTEGER now;
  QueryPerformanceCounter(&now);
  return now.QuadPart;
}

long long FileTimeOf(const FILETIME& time) {
  return static_cast<long long>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

// The counter has no reading from before the process ran: its creation is
// placed on the counter's scale through the system clock (100 ns units).
long long CreationTicks(long long now) {
  FILETIME created, exited, kernel, user, clock;
  if (!GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user)) return now;
  GetSystemTimeAsFileTime(&clock);
  long long since = FileTimeOf(clock) - FileTimeOf(created);
  if (since < 0) since = 0;
  return now - since * Trace().frequency.QuadPart / 10000000;
}

double Milliseconds(long long ticks) {
  return static_cast<double>(ticks) * 1000.0 / static_cast<double>(Trace().frequency.QuadPart);
}

std::string Line(const Record& record, long long previous, const Count* before) {
  char text[160];
  std::snprintf(text, sizeof text, "%s\t%.1f\t%.1f", record.name, Milliseconds(record.ticks - Trace().origin),
                Milliseconds(record.ticks - previous));
  std::string line = text;
  const char* separator = "\t";
  for (int tally = 0; tally < kTallyCount; ++tally) {
    int calls = record.tallies[tally].calls - before[tally].calls;
    if (calls == 0) continue;
    std::snprintf(text, sizeof text, "%s%s %d calls %.1f ms", separator, kTallyNames[tally], calls,
                  Milliseconds(record.tallies[tally].ticks - before[tally].ticks));
    line += text;
    separator = ", ";
  }
  if (!record.note.empty()) line += separator + record.note;
  return line + "\r\n";
}

}  // namespace

void Start() {
  State& state = Trace();
  wchar_t path[MAX_PATH];
  DWORD length = GetEnvironmentVariableW(L"TIDEWELL_TRACE", path, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return;
  state.on = true;
  state.path = path;
  QueryPerformanceFrequency(&state.frequency);
  long long now = Ticks();
  state.origin = CreationTicks(now);
  state.records.reserve(16);
  Step("WinMain");
}

bool On() { return Trace().on && !Trace().finished; }

void Step(const char* name, const char* note) {
  if (!On()) return;
  State& state = Trace();
  Record record{name, Ticks(), {}, note ? note : ""};
  for (int tally = 0; tally < kTallyCount; ++tally) record.tallies[tally] = state.tallies[tally];
  state.records.push_back(record);
}

void Finish() {
  if (!On()) return;
  State& state = Trace();
  state.finished = true;
  std::string text;
  long long previous = state.origin;
  Count before[kTallyCount] = {};
  for (const Record& record : state.records) {
    text += Line(record, previous, before);
    previous = record.ticks;
    for (int tally = 0; tally < kTallyCount; ++tally) before[tally] = record.tallies[tally];
  }
  HANDLE file = CreateFileW(state.path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                            nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  DWORD written = 0;
  WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  CloseHandle(file);
}

Timed::Timed(Tally tally) : tally_(tally) {
  if (On()) start_ = Ticks();
}

Timed::~Timed() {
  if (start_ == 0 || !On()) return;
  Count& count = Trace().tallies[tally_];
  ++count.calls;
  count.ticks += Ticks() - start_;
}

long TracedRegistry::Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) {
  Timed timed(kRegistryTally);
  return inner_.Open(parent, path, create, key);
}

long TracedRegistry::Close(RegKey key) {
  Timed timed(kRegistryTally);
  return inner_.Close(key);
}

long TracedRegistry::Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
                           std::uint32_t& size) {
  Timed timed(kRegistryTally);
  return inner_.Query(key, name, type, data, size);
}

long TracedRegistry::Set(RegKey key, std::u16string_view name, std::uint32_t type, const void* data,
                         std::uint32_t size) {
  Timed timed(kRegistryTally);
  return inner_.Set(key, name, type, data, size);
}

long TracedRegistry::DeleteValue(RegKey key, std::u16string_view name) {
  Timed timed(kRegistryTally);
  return inner_.DeleteValue(key, name);
}

long TracedRegistry::EnumValue(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars,
                               std::uint32_t& type, void* data, std::uint32_t& dataSize) {
  Timed timed(kRegistryTally);
  return inner_.EnumValue(key, index, name, nameChars, type, data, dataSize);
}

long TracedRegistry::EnumKey(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars) {
  Timed timed(kRegistryTally);
  return inner_.EnumKey(key, index, name, nameChars);
}

long TracedRegistry::DeleteTree(RegKey parent, std::u16string_view subkey) {
  Timed timed(kRegistryTally);
  return inner_.DeleteTree(parent, subkey);
}

}  // namespace tw::trace
