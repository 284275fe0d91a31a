#include "dxfout/KrDxfOutAll.h"

#include "dxfout/KrDxfOutFiles.h"
#include "dxfout/OutModel.h"
#include "resources/dxfout/KrDxfOutAll.ids.h"
#include "ui/MessageBoxes.h"

KrDxfOutAll::KrDxfOutAll() : HostDialog(kDxfOutAllDialog), medium_(*this, {kOutAllDiskRadio, kOutAllFloppyRadio}) {
    medium_.OnChosen([this](int index) { record_->output.mediaKind = index; });
    On(kOutByPictureButton, BN_CLICKED, &KrDxfOutAll::OpenPictures);
    On(kOutByPageButton, BN_CLICKED, &KrDxfOutAll::OpenPages);
}

void KrDxfOutAll::SetInfo(TARNAINFO* info) { record_ = info; }

void KrDxfOutAll::OnInit() {
    InitUtility();
    const char* caption = OutBatchCaption(record_->output);
    kiro::ui::Window(Handle()).SetText(caption);
    Utility().SetCaption(caption);
    medium_.Select(0);
    record_->output.mediaKind = 0;
}

void KrDxfOutAll::OpenPictures() {
    for (int picture = 1; picture <= kLastPicture; ++picture) {
        if (ItemsOfPicture(picture) > 0) return Open<KrDxfOutPicture>();
    }
    kiro::ui::Tell(Handle(), "ピクチャにデータがありません。", OutBatchCaption(record_->output));
}

void KrDxfOutAll::OpenPages() {
    if (!OutLayouts().empty()) return Open<KrDxfOutPage>();
    kiro::ui::Tell(Handle(), "図面配置情報がありません。", OutBatchCaption(record_->output));
}

template <class List>
void KrDxfOutAll::Open() {
    List list;
    list.SetInfo(record_);
    list.DoModal(Handle());
    ShowGuidance(list.Summary().c_str());
}
