#include "RecordJson.h"

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <limits>

#include "entry/host/TARNAINFO.h"
#include "entry/host/kirobc.h"

namespace kiro {
namespace {

constexpr UINT kShiftJisPage = 932;
constexpr std::size_t kDrawingsOffset = offsetof(TarnaDatabaseView, dbDrawings);
constexpr Field kDrawingFields[] = {
    {"selected", offsetof(TarnaDrawing, selected), FieldKind::kInteger, sizeof TarnaDrawing::selected},
    {"drawingName", offsetof(TarnaDrawing, drawingName), FieldKind::kShiftJis, sizeof TarnaDrawing::drawingName},
};
template <FieldKind kind>
constexpr Field kModelField[] = {
    {"modelName", offsetof(TarnaDrawing, modelName), kind, sizeof TarnaDrawing::modelName}};
const RecordView kDrawingToRead{"TarnaDrawing", kDrawingFields, kModelField<FieldKind::kShiftJis>};
const RecordView kDrawingToWrite{"TarnaDrawing", kDrawingFields, kModelField<FieldKind::kEuc>};

const RecordView& DrawingView(Drawings drawings) {
    return drawings == Drawings::kToWrite ? kDrawingToWrite : kDrawingToRead;
}
std::size_t CountOffset(Drawings drawings) {
    return drawings == Drawings::kToWrite ? offsetof(TarnaDatabaseView, dbOutModelCount)
                                          : offsetof(TarnaDatabaseView, dbDrawingCount);
}

std::wstring ToWide(UINT page, const std::string& text) {
    const int length = MultiByteToWideChar(page, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(page, 0, text.data(), static_cast<int>(text.size()), wide.data(), length);
    return wide;
}

template <class T>
T Load(std::span<const std::byte> bytes, std::size_t offset) {
    T value;
    std::memcpy(&value, bytes.subspan(offset, sizeof value).data(), sizeof value);
    return value;
}

template <class T>
void Store(std::span<std::byte> bytes, std::size_t offset, T value) {
    std::memcpy(bytes.subspan(offset, sizeof value).data(), &value, sizeof value);
}

Json SlotToJson(const Field& field, std::span<const std::byte> slot) {
    if (field.kind == FieldKind::kInteger) return Load<std::int32_t>(slot, 0);
    if (field.kind == FieldKind::kReal) return Load<double>(slot, 0);
    const void* end = std::memchr(slot.data(), 0, slot.size());
    const auto* text = reinterpret_cast<const char*>(slot.data());
    const std::string raw(text, end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : slot.size());
    return field.kind == FieldKind::kEuc ? Utf8FromEuc(raw) : Utf8FromShiftJis(raw);
}

std::int32_t Integer(const std::string& name, const Json& json) {
    if (!json.is_number_integer()) throw RecordError(name + ": an integer is expected");
    const bool tooLarge = json.is_number_unsigned() && json.get<std::uint64_t>() > INT32_MAX;
    const auto value = json.get<std::int64_t>();
    if (tooLarge || value > INT32_MAX || value < INT32_MIN) throw RecordError(name + ": no 32-bit integer");
    return static_cast<std::int32_t>(value);
}

void SlotFromJson(const Field& field, const std::string& name, const Json& json, std::span<std::byte> slot) {
    if (field.kind == FieldKind::kInteger) return Store(slot, 0, Integer(name, json));
    if (field.kind == FieldKind::kReal) {
        if (!json.is_number()) throw RecordError(name + ": a number is expected");
        return Store(slot, 0, json.get<double>());
    }
    if (!json.is_string()) throw RecordError(name + ": a text is expected");
    std::string raw;
    try {
        const auto& utf8 = json.get_ref<const std::string&>();
        if (utf8.find('\0') != std::string::npos) throw RecordError("the text has a NUL");
        raw = field.kind == FieldKind::kEuc ? EucFromUtf8(utf8) : ShiftJisFromUtf8(utf8);
    } catch (const RecordError& error) {
        throw RecordError(name + ": " + error.what());
    }
    // A text that fills its field has no NUL behind it: some host fields are padded to their whole width.
    if (raw.size() > slot.size())
        throw RecordError(name + ": " + std::to_string(raw.size()) + " bytes, the field has " +
                          std::to_string(slot.size()));
    std::memset(slot.data(), 0, slot.size());
    std::memcpy(slot.data(), raw.data(), raw.size());
}

bool IsEmpty(const Json& slot) { return slot.is_string() ? slot.get_ref<const std::string&>().empty() : slot == 0; }

Json FieldToJson(const Field& field, std::span<const std::byte> record) {
    const auto bytes = record.subspan(field.offset, field.width * field.slots);
    if (field.slots == 1) return SlotToJson(field, bytes);
    Json slots = field.list ? Json::array() : Json::object();
    for (std::size_t i = 0; i < field.slots; ++i) {
        Json slot = SlotToJson(field, bytes.subspan(i * field.width, field.width));
        if (field.list)
            slots.push_back(std::move(slot));
        else if (!IsEmpty(slot))
            slots[std::to_string(static_cast<int>(i) + field.firstNumber)] = std::move(slot);
    }
    return slots;
}

// The slot that a member's name means: digits only, so that "1" and "01" are not two names of one slot.
std::size_t SlotIndex(const Field& field, const std::string& number) {
    for (std::size_t i = 0; i < field.slots; ++i)
        if (number == std::to_string(static_cast<int>(i) + field.firstNumber)) return i;
    throw RecordError(std::string(field.name) + ": there is no number " + number);
}

void SetSlot(const Field& field, std::size_t index, const Json& json, std::span<std::byte> record) {
    const std::string number = std::to_string(static_cast<int>(index) + field.firstNumber);
    SlotFromJson(field, std::string(field.name) + "[" + number + "]", json,
                 record.subspan(field.offset + index * field.width, field.width));
}

void FieldFromJson(const Field& field, const Json& json, std::span<std::byte> record) {
    const std::string name = field.name;
    if (field.slots == 1) return SlotFromJson(field, name, json, record.subspan(field.offset, field.width));
    if (field.list) {
        if (!json.is_array() || json.size() > field.slots)
            throw RecordError(name + ": an array of at most " + std::to_string(field.slots) + " is expected");
        for (std::size_t i = 0; i < json.size(); ++i) SetSlot(field, i, json[i], record);
        return;
    }
    if (!json.is_object()) throw RecordError(name + ": an object of numbers is expected");
    for (const auto& [number, value] : json.items()) SetSlot(field, SlotIndex(field, number), value, record);
}

template <class Visit>
void ForEachField(const RecordView& view, Visit visit) {
    for (const auto fields : {view.fields, view.moreFields})
        for (const Field& field : fields) visit(field);
}

std::size_t DrawingRoom(std::span<const std::byte> record) {
    return (record.size() - kDrawingsOffset) / sizeof(TarnaDrawing);
}

Json DrawingsToJson(Drawings kind, std::span<const std::byte> record) {
    const auto count = Load<std::int32_t>(record, CountOffset(kind));
    const std::size_t shown = count < 0 ? 0 : std::min(static_cast<std::size_t>(count), DrawingRoom(record));
    Json drawings = Json::array();
    for (std::size_t i = 0; i < shown; ++i)
        drawings.push_back(ToJson(DrawingView(kind),
                                  record.subspan(kDrawingsOffset + i * sizeof(TarnaDrawing), sizeof(TarnaDrawing))));
    return drawings;
}

void DrawingsFromJson(Drawings kind, const Json& json, std::span<std::byte> record) {
    if (!json.is_array()) throw RecordError("dbDrawings: an array is expected");
    if (json.size() > DrawingRoom(record))
        throw RecordError("dbDrawings: there is room for " + std::to_string(DrawingRoom(record)));
    for (std::size_t i = 0; i < json.size(); ++i)
        FromJson(DrawingView(kind), json[i],
                 record.subspan(kDrawingsOffset + i * sizeof(TarnaDrawing), sizeof(TarnaDrawing)));
}

void PrintTo(std::string& out, const Json& json, const std::string& indent) {
    const bool spread = !json.empty() && (json.is_object() || (json.is_array() && json.front().is_object()));
    if (!spread) {
        out += json.dump(-1, ' ', false, Json::error_handler_t::replace);
        return;
    }
    const char* separator = json.is_object() ? "{\n" : "[\n";
    for (const auto& [name, value] : json.items()) {
        out += separator + indent + "  ";
        if (json.is_object()) out += Json(name).dump(-1, ' ', false, Json::error_handler_t::replace) + ": ";
        PrintTo(out, value, indent + "  ");
        separator = ",\n";
    }
    out += "\n" + indent + (json.is_object() ? "}" : "]");
}

}  // namespace

std::string Print(const Json& json) {
    std::string text;
    PrintTo(text, json, "");
    return text + "\n";
}

std::wstring WideFromUtf8(const std::string& text) { return ToWide(CP_UTF8, text); }

std::string Utf8FromWide(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

std::string Utf8FromShiftJis(const std::string& text) { return Utf8FromWide(ToWide(kShiftJisPage, text)); }
std::string Utf8FromEuc(const std::string& text) { return Utf8FromShiftJis(HxEucEncoder::Euc2Sjis(text)); }

std::string ShiftJisFromUtf8(const std::string& text) {
    const std::wstring wide = WideFromUtf8(text);
    const int size = static_cast<int>(wide.size());
    BOOL lost = FALSE;
    const int length =
        WideCharToMultiByte(kShiftJisPage, WC_NO_BEST_FIT_CHARS, wide.data(), size, nullptr, 0, nullptr, &lost);
    if (lost) throw RecordError("code page 932 has not all of its characters");
    std::string result(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(kShiftJisPage, WC_NO_BEST_FIT_CHARS, wide.data(), size, result.data(), length, nullptr,
                        nullptr);
    return result;
}

std::string EucFromUtf8(const std::string& text) { return HxEucEncoder::Sjis2Euc(ShiftJisFromUtf8(text)); }

Json ToJson(const RecordView& view, std::span<const std::byte> record) {
    Json json = Json::object();
    ForEachField(view, [&](const Field& field) { json[field.name] = FieldToJson(field, record); });
    if (view.drawings != Drawings::kNone) json["dbDrawings"] = DrawingsToJson(view.drawings, record);
    return json;
}

void FromJson(const RecordView& view, const Json& json, std::span<std::byte> record) {
    if (!json.is_object()) throw RecordError(std::string(view.name) + ": an object is expected");
    for (const auto& [name, value] : json.items()) {
        bool known = view.drawings != Drawings::kNone && name == "dbDrawings";
        ForEachField(view, [&](const Field& field) { known = known || name == field.name; });
        if (!known) throw RecordError(std::string(view.name) + " has no field " + name);
    }
    ForEachField(view, [&](const Field& field) {
        if (json.contains(field.name)) FieldFromJson(field, json[field.name], record);
    });
    if (view.drawings != Drawings::kNone && json.contains("dbDrawings"))
        DrawingsFromJson(view.drawings, json["dbDrawings"], record);
}

}  // namespace kiro
