// The parameters of drawings that are written for Pelion.
#pragma once

#include "peliondb/DbOutParam.h"

class KrPlOutParam final : public DbOutParam<PlOutParamBlock> {
  public:
    explicit KrPlOutParam(TARNAINFO* info);

  private:
    static const Form kForm;

    void ShowOwn(const PlOutParamBlock& params) override;
    std::optional<Fault> OwnFault() const override;
    void ReadOwn(PlOutParamBlock& params) const override;
    int MostCapacity() const override;

    bool IsVersion3() const { return version_.Selected() == 1; }
    void VersionChosen();

    kiro::ui::RadioGroup version_;
    kiro::ui::RadioGroup precision_;
};
