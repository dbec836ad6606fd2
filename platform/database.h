// The device's object-store databases, as far as the categories need them:
// open by name, seek to the start, read records property by property, close.
// Every property is reported the way CeReadRecordPropsEx reports it: found
// with its own type (which may differ from the one asked for) or not found.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

// A property id is the identifier in the high word and the CE type in the low word.
enum CeType : std::uint16_t {
  kCeI2 = 0x0002,
  kCeI4 = 0x0003,
  kCeUi2 = 0x0012,
  kCeUi4 = 0x0013,
  kCeString = 0x001F,
};
constexpr std::uint32_t PropertyId(std::uint16_t identifier, std::uint16_t type) {
  return (static_cast<std::uint32_t>(identifier) << 16) | type;
}
constexpr std::uint16_t IdentifierOf(std::uint32_t propertyId) { return propertyId >> 16; }
constexpr std::uint16_t TypeOf(std::uint32_t propertyId) { return propertyId & 0xFFFF; }

// One stored property: numbers for the integer types, text for strings (and,
// verbatim, for any type this layer does not interpret).
struct DatabaseProperty {
  std::uint32_t id = 0;
  std::int32_t number = 0;
  std::u16string text;
};
using DatabaseRecord = std::vector<DatabaseProperty>;

// The answer for one asked property.
struct PropertyValue {
  bool found = false;
  std::uint16_t type = 0;
  std::int32_t number = 0;
  std::u16string text;
};

class DatabaseCursor {
 public:
  virtual ~DatabaseCursor() = default;  // closes the database
  virtual bool SeekToBeginning() = 0;
  // The next record's properties matching the identifiers of `asked`, one
  // answer per asked id in the same order; false when no record is left.
  virtual bool ReadRecord(std::span<const std::uint32_t> asked, std::vector<PropertyValue>& values) = 0;
};

class ObjectStore {
 public:
  virtual ~ObjectStore() = default;
  // Null when the database cannot be opened.
  virtual std::unique_ptr<DatabaseCursor> Open(std::u16string_view name) = 0;
};

// A cursor over records held in memory; both implementations serve from it.
std::unique_ptr<DatabaseCursor> MakeRecordCursor(std::vector<DatabaseRecord> records);

// The text form of a database: one record a line, lines empty or starting
// with '#' skipped, properties separated by tabs, each "PROPID=value" with the
// property id as eight hexadecimal digits. Malformed properties are dropped.
std::vector<DatabaseRecord> ParseDatabaseText(std::string_view utf8);
std::string FormatDatabaseText(const std::vector<DatabaseRecord>& records);

}  // namespace tw
