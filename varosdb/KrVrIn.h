// Reads drawings of a Varos database file.
#pragma once

#include "peliondb/DatabaseInput.h"

class KrVrIn final : public DatabaseInput {
  public:
    explicit KrVrIn(TARNAINFO* info);

  private:
    void OnInit() override;
    bool CheckOwn() override;
    void StoreOwnTexts() override;
    std::string SubModelForRecord(const std::string& sjis) const override { return sjis; }
    std::string FileForRecord() const override { return file_.InternalPath(); }
    int ListDrawings() override;
    void TakeDrawings() override;

    bool CheckSpacing(int editId, const char* message, double& spacing);

    double charSpacing_ = 0;  // as they
    double lineSpacing_ = 0;  // were checked
};
