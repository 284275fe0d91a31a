#include "peliondb/KrPlInDraw1.h"

#include "entry/host/FixedText.h"
#include "resources/peliondb/KrPlDraw.ids.h"

namespace {

constexpr char kTitle[] = "図面選択";
constexpr kiro::ui::GridColumn kColumns[] = {{"番号", 2.0}, {"図面名", 8.0}};

}  // namespace

KrPlInDraw1::KrPlInDraw1(TARNAINFO* info)
    : DrawingList(kPlInDraw1Dialog, kTitle, kColumns, info, info->database.dbDrawingCount) {}

void KrPlInDraw1::OnInit() {
    DrawingList::OnInit();
    grid_.Control().SetAvailableFlag(-1, 1, 1);  // not as cells that cannot be edited
}

void KrPlInDraw1::Show(const TarnaDrawing& drawing, Row& row) const { row[1] = ReadFixedText(drawing.drawingName); }
