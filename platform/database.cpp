#include "platform/database.h"

#include "base/text.h"
#include "base/wide_string.h"

namespace tw {
namespace {

bool IsNumberType(std::uint16_t type) {
  return type == kCeI2 || type == kCeI4 || type == kCeUi2 || type == kCeUi4;
}

class RecordCursor : public DatabaseCursor {
 public:
  explicit RecordCursor(std::vector<DatabaseRecord> records) : records_(std::move(records)) {}

  bool SeekToBeginning() override {
    next_ = 0;
    return true;
  }

  bool ReadRecord(std::span<const std::uint32_t> asked, std::vector<PropertyValue>& values) override {
    if (next_ >= records_.size()) return false;
    const DatabaseRecord& record = records_[next_++];
    values.assign(asked.size(), PropertyValue());
    for (std::size_t i = 0; i < asked.size(); ++i) {
      for (const DatabaseProperty& property : record) {
        if (IdentifierOf(property.id) != IdentifierOf(asked[i])) continue;
        values[i] = {true, TypeOf(property.id), property.number, property.text};
        break;
      }
    }
    return true;
  }

 private:
  std::vector<DatabaseRecord> records_;
  std::size_t next_ = 0;
};

bool ParseHexId(std::string_view text, std::uint32_t& id) {
  if (text.size() != 8) return false;
  id = 0;
  for (char c : text) {
    int digit = c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10
                : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
    if (digit < 0) return false;
    id = id << 4 | static_cast<std::uint32_t>(digit);
  }
  return true;
}

bool ParseProperty(std::string_view field, DatabaseProperty& property) {
  std::size_t equals = field.find('=');
  if (equals == std::string_view::npos || !ParseHexId(field.substr(0, equals), property.id)) return false;
  property.text = Utf8ToUtf16(field.substr(equals + 1));
  if (IsNumberType(TypeOf(property.id))) {
    property.number = ParseLong(property.text, 10);
    if (TypeOf(property.id) == kCeI2) property.number = static_cast<std::int16_t>(property.number);
    if (TypeOf(property.id) == kCeUi2) property.number = static_cast<std::uint16_t>(property.number);
  }
  return true;
}

DatabaseRecord ParseRecord(std::string_view line) {
  DatabaseRecord record;
  while (!line.empty()) {
    std::size_t tab = line.find('\t');
    DatabaseProperty property;
    if (ParseProperty(line.substr(0, tab), property)) record.push_back(std::move(property));
    line = tab == std::string_view::npos ? std::string_view() : line.substr(tab + 1);
  }
  return record;
}

}  // namespace

std::unique_ptr<DatabaseCursor> MakeRecordCursor(std::vector<DatabaseRecord> records) {
  return std::make_unique<RecordCursor>(std::move(records));
}

std::vector<DatabaseRecord> ParseDatabaseText(std::string_view utf8) {
  std::vector<DatabaseRecord> records;
  while (!utf8.empty()) {
    std::size_t end = utf8.find('\n');
    std::string_view line = utf8.substr(0, end);
    utf8 = end == std::string_view::npos ? std::string_view() : utf8.substr(end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.empty() || line.front() == '#') continue;
    records.push_back(ParseRecord(line));
  }
  return records;
}

std::string FormatDatabaseText(const std::vector<DatabaseRecord>& records) {
  std::string text;
  for (const DatabaseRecord& record : records) {
    for (std::size_t i = 0; i < record.size(); ++i) {
      const DatabaseProperty& property = record[i];
      std::u16string value = IsNumberType(TypeOf(property.id)) ? FormatText(u"%d", {property.number})
                                                                : property.text;
      if (i > 0) text += '\t';
      text += Utf16ToUtf8(FormatText(u"%08X=", {property.id})) + Utf16ToUtf8(value);
    }
    text += "\n";
  }
  return text;
}

}  // namespace tw
