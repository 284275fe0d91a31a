#include "peliondb/KrPlOutDraw.h"

#include <algorithm>

#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "resources/peliondb/KrPlDraw.ids.h"

namespace {

constexpr char kTitle[] = "モデル名一覧";
constexpr unsigned int kNameLimit = 20;
constexpr std::size_t kShownModelName = 127;  // bytes
constexpr kiro::ui::GridColumn kColumns[] = {
    {"番号", 1.0}, {"モデル名", 5.0}, {"図面名", 4.0, kNameLimit, "図面名を入力してください。"}};
constexpr DrawingNameRules kRules = {
    "図面名が入力されていません。 : %d",  kNameLimit,
    "図面名が長すぎます。 : %d",          "図面名に無効な文字が使用されています。 : %d",
    "図面名が重複しています。 : %d - %d", "モデル名選択"};

bool IsAsciiOrKatakana(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 128 || (byte >= 160 && byte <= 223);
}

}  // namespace

KrPlOutDraw::KrPlOutDraw(TARNAINFO* info)
    : NamedDrawingList(kPlOutDrawDialog, kTitle, kColumns, info, info->database.dbOutModelCount, kRules) {
    Bind(kSelectAllButton, BN_CLICKED, [this] { MarkAll(true); });
    Bind(kSelectNoneButton, BN_CLICKED, [this] { MarkAll(false); });
}

void KrPlOutDraw::OnInit() {
    DrawingList::OnInit();
    Item<kiro::ui::Button>(kSelectAllButton).Enable(info_.dbSelectAllAllowed != 0);
}

void KrPlOutDraw::MarksChanged() {
    DrawingList::MarksChanged();
    Item<kiro::ui::Button>(kSelectNoneButton).Enable(AnyMarked());
}

void KrPlOutDraw::MarkAll(bool on) {
    if (!grid_.EndEdit()) return;
    for (int row = 0; row < rows_.Count(); ++row) grid_.Control().SetSelectFlag(row, on);
    grid_.Control().DrawItem();
    SetFocus(grid_.List());  // the button may not be there for long
    MarksChanged();
}

void KrPlOutDraw::Show(const TarnaDrawing& drawing, Row& row) const {
    row[1] = HxEucEncoder::Euc2Sjis(ReadFixedText(drawing.modelName), kShownModelName);
    row[kNameColumn] = ReadFixedText(drawing.drawingName);
}

bool KrPlOutDraw::HasValidCharacters(const std::string& name) const {
    return std::ranges::all_of(name, IsAsciiOrKatakana);
}

void KrPlOutDraw::Store(TarnaDrawing& drawing, const Row& row, bool marked) const {
    drawing.selected = 0;
    if (marked) WriteFixedText(drawing.drawingName, row[kNameColumn]);
    DrawingList::Store(drawing, row, marked);
}
