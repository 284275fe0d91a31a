// The records and parameter blocks as JSON, field by field under the names of their headers.
//
// Texts are UTF-8 in JSON. A numbered field (such as dbPageNames) is an object that has only the slots that are not
// empty, by number: {"1": "平面図", "12": "側面図"}. Bytes that belong to no field are not shown and not changed.
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>
#include <string>

namespace kiro {

// Members stay in the order in which the header has the fields.
using Json = nlohmann::ordered_json;

enum class FieldKind { kInteger, kReal, kEuc, kShiftJis };

struct Field {
    const char* name;
    std::size_t offset;
    FieldKind kind;
    std::size_t width;      // of one slot, in bytes
    std::size_t slots = 1;  // more than one: a numbered field
    int firstNumber = 0;    // the number of the first slot
    bool list = false;      // a numbered field that is a JSON array instead, with every slot from the first on
};

// The entries of dbDrawings that a view shows: dbDrawingCount of them with the models' names in Shift-JIS, or
// dbOutModelCount with those in EUC.
enum class Drawings { kNone, kToRead, kToWrite };

struct RecordView {
    const char* name;
    std::span<const Field> fields;
    std::span<const Field> moreFields = {};  // those that views have in common
    Drawings drawings = Drawings::kNone;     // dbDrawings follows
};

extern const RecordView kImportView;
extern const RecordView kExportView;
extern const RecordView kDatabaseInputView;   // of Pelion
extern const RecordView kVarosInputView;      // dbSubModelName is Shift-JIS
extern const RecordView kDatabaseOutputView;  // with dbModelPattern in the second half of dbFileName
extern const RecordView kCatiaView;
extern const RecordView kDxfInParams;
extern const RecordView kDxfOutParams;
extern const RecordView kPlOutParams;
extern const RecordView kVrOutParams;

class RecordError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The bytes are the whole record; with a database view also the drawings that follow it.
Json ToJson(const RecordView& view, std::span<const std::byte> record);
// Sets the fields that the JSON object names and leaves the others; in the table's order, so that of two that share
// bytes (a block's words and its named fields) the later one wins. RecordError, and a record in part changed, for an
// unknown name, a wrong type, a number out of range, or a text that is too long or has no form in the field's encoding.
void FromJson(const RecordView& view, const Json& json, std::span<std::byte> record);

// For people to read: a member on each line, lists of numbers on one. Ends with a line feed.
std::string Print(const Json& json);

std::string Utf8FromShiftJis(const std::string& text);
std::string Utf8FromEuc(const std::string& text);
std::string ShiftJisFromUtf8(const std::string& text);  // RecordError when code page 932 has no such character
std::string EucFromUtf8(const std::string& text);
std::wstring WideFromUtf8(const std::string& text);
std::string Utf8FromWide(const std::wstring& text);

}  // namespace kiro
