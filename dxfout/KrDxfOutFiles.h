// The lists of what is written in one go, a file each: the pages of the drawing layouts, or the pictures.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "entry/host/TARNAINFO.h"
#include "ui/Grid.h"
#include "ui/HostDialog.h"
#include "ui/ListRun.h"

const char* OutBatchCaption(const TarnaExportView& info);

struct OutFileRow : kiro::ui::GridRow<5> {
    int number = 0;      // of the page or the picture
    std::string looked;  // the name for which the mark says whether there is such a file
    std::string path;    // of that name: internal form, "" when it is no name
};

class OutFileList : public kiro::ui::HostDialog {
  public:
    // Before it is shown. The record's layer table is a name in Shift-JIS; nothing of the record is written.
    void SetInfo(const TARNAINFO* info) { info_ = &info->output; }
    const std::string& Summary() const { return summary_; }  // of what was written; "" when nothing was started

  protected:
    // What differs between pages and pictures.
    struct Kind {
        int templateId;
        kiro::ui::GridColumns columns;
        const char* working;  // guidance, with %d for the number
        const char* noneMarked;
        const char* modelIsFaulty;  // what comes before the name of the list
        bool isPage;
    };
    static const Kind kPages;
    static const Kind kPictures;
    explicit OutFileList(const Kind& kind);

    // The rows: number and description.
    virtual void Fill() = 0;
    void AddRow(int number, std::string description);

  private:
    void OnInit() override;
    void OnOk() override;
    void OnCancel() override;

    void NameAll();
    void LookForFiles();
    void Look(int row);
    void FindSameNames();
    void CheckRow(const kiro::ui::RowCheck& check) const;
    bool CheckRows();
    void CellMoved(int row);
    std::vector<int> MarkedRows() const;
    bool ModelIsFaulty() const;
    void Start(std::vector<int> rows);
    bool Write(int row);
    bool GoesOnAfter(int code) const;
    void Ended();
    const char* Key() const;

    const Kind& kind_;
    const TarnaExportView* info_ = nullptr;
    std::string commonName_ = "TEMP";
    kiro::ui::GridRows<OutFileRow> rows_;
    kiro::ui::Grid grid_;
    kiro::ui::ListRun run_;
    std::vector<int> same_;  // by row: another row with the same name, or -1
    int row_ = -1;           // the row that was current when the rows were checked last
    int failed_ = 0;
    std::string summary_;
};

class KrDxfOutPage final : public OutFileList {
  public:
    KrDxfOutPage();

  private:
    void Fill() override;
};

class KrDxfOutPicture final : public OutFileList {
  public:
    KrDxfOutPicture();

  private:
    void Fill() override;
};
