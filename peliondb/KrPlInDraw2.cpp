#include "peliondb/KrPlInDraw2.h"

#include "entry/host/FixedText.h"
#include "resources/peliondb/KrPlDraw.ids.h"

namespace {

constexpr char kTitle[] = "図面選択";
constexpr unsigned int kNameLimit = 32;
constexpr kiro::ui::GridColumn kColumns[] = {
    {"番号", 1.0}, {"図面名", 5.0}, {"モデル名", 4.0, kNameLimit, "モデル名を入力してください。"}};
constexpr DrawingNameRules kRules = {
    "モデル名が入力されていません。： %d",  kNameLimit,
    "モデル名が長すぎます。： %d",          "モデル名に無効な文字が使用されています。： %d",
    "モデル名が重複しています。： %d - %d", "図面名選択"};

}  // namespace

KrPlInDraw2::KrPlInDraw2(TARNAINFO* info)
    : NamedDrawingList(kPlInDraw2Dialog, kTitle, kColumns, info, info->database.dbDrawingCount, kRules) {}

void KrPlInDraw2::Show(const TarnaDrawing& drawing, Row& row) const {
    row[1] = ReadFixedText(drawing.drawingName);
    row[kNameColumn] = ReadFixedText(drawing.modelName);
}

// Deliberately all rows, marked or not: every name is stored.
bool KrPlInDraw2::IsChecked(int) const { return true; }

bool KrPlInDraw2::HasValidCharacters(const std::string& name) const {
    return Utility().CheckModelName(name.c_str()) != 0;
}

void KrPlInDraw2::Store(TarnaDrawing& drawing, const Row& row, bool marked) const {
    WriteFixedText(drawing.modelName, row[kNameColumn]);
    DrawingList::Store(drawing, row, marked);
}
