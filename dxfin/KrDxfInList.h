// The drawings of a batch import: which of them become models, by what names, and the run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "dxfin/DrawingSearch.h"
#include "dxfin/ModelBatch.h"
#include "dxfin/ModelNames.h"
#include "entry/host/HostApi.h"
#include "entry/host/ParamBlocks.h"
#include "ui/Grid.h"
#include "ui/HostDialog.h"
#include "ui/IdleWork.h"
#include "ui/ListRun.h"

// What the list is given: a block laid out like the import's record, as far as it has these fields.
struct DxfInListInfo {
    std::int32_t inputIsDwg;
    std::int32_t medium;  // 0 disk, 1 floppy
    char reserved8[32];
    char pattern[257];  // Shift-JIS: a name, or a real path, that may have "*" and "?"
    char reserved297[257];
    char layerTableFileName[257];  // internal form
    char reserved811[261];
    DxfInParamBlock* importParams;  // null: those that the host has
};
KIRO_PIN(DxfInListInfo, inputIsDwg, 0, 4);
KIRO_PIN(DxfInListInfo, medium, 4, 4);
KIRO_PIN(DxfInListInfo, pattern, 40, 257);
KIRO_PIN(DxfInListInfo, layerTableFileName, 554, 257);
KIRO_PIN(DxfInListInfo, importParams, 1072, 8);

// What differs between a batch of DXF and one of DWG files.
struct BatchKind {
    const char* caption;    // of the settings, and of all messages
    const char* listTitle;  // of the list
    const char* key;
    const char* comment;
};
const BatchKind& BatchKindOf(bool dwg);

struct DrawingRow : kiro::ui::GridRow<6> {
    std::string proposed;  // as the model's name
    std::string checked;   // the name whose file this is
    ModelFile model;
    std::uint64_t size = 0;
    bool versionKnown = false;
};

class KrDxfInList final : public kiro::ui::HostDialog {
  public:
    explicit KrDxfInList(const DxfInListInfo& info);

    // Before it is shown; it is worth that only when there is a file.
    DrawingSearch::Start Search();
    const std::string& Summary() const { return summary_; }  // of the last run; "" when there was none

  private:
    void OnInit() override;
    void OnOk() override;
    void OnCancel() override;

    // Filling the list.
    bool Fill();
    void ShowFiles();
    bool ReadVersions();
    int NextWithoutVersion();
    void ReadVersion(int row);
    void ShowCount() const;

    // Marks and names.
    void MarkAll(bool on);
    void NameFromFiles();
    bool LosesNames();
    void FindModelFiles();
    void FindSameNames();
    void CheckRow(const kiro::ui::RowCheck& check) const;
    bool CheckNames();
    bool AgreesToReplace(const std::vector<int>& rows);
    bool IsMarked(int row) const { return grid_.Control().GetSelectFlag(row) != 0; }
    std::vector<int> MarkedRows() const;

    // The run.
    void Start(std::vector<int> rows);
    bool Step(int row);
    void Announce(int row);
    std::string Convert(int row);
    bool GoesOnAfter(int row, const std::string& reason);
    void ShowResult(int row, const std::string& result, bool failed);
    void TellResult(int row);
    void Ended();
    void EnableControls(bool on) const;
    std::string DrawingPath(int row) const;  // internal form; "" when it cannot be formed

    const DxfInListInfo info_;
    const BatchKind& kind_;
    const char* key_;
    std::string pattern_;  // real path
    std::string folder_;   // of that, with "\" at its end
    DrawingSearch search_;
    std::vector<FoundDrawing> found_;

    kiro::ui::GridRows<DrawingRow> rows_;
    kiro::ui::Grid grid_;
    kiro::ui::ListRun run_;
    kiro::ui::IdleWork filling_;
    bool filled_ = false;    // the rows are there
    int nextVersion_ = 0;    // rows before that one have theirs
    std::vector<int> same_;  // by row: another marked row with the same name, or -1

    std::optional<ModelAside> aside_;  // during a run, as the following
    std::optional<BatchListing> listing_;
    std::unordered_set<std::wstring> replaced_;  // files that may be replaced, by their folded names
    bool asks_ = true;                           // after a failure
    int converted_ = 0;
    int failed_ = 0;
    std::string summary_;
};
