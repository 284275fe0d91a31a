// The parameters of drawings that are written for Varos.
#pragma once

#include "peliondb/DbOutParam.h"

class KrVrOutParam final : public DbOutParam<VrOutParamBlock> {
  public:
    explicit KrVrOutParam(TARNAINFO* info);

  private:
    static const Form kForm;

    void ShowOwn(const VrOutParamBlock& params) override;
    std::optional<Fault> OwnFault() const override;
    void ReadOwn(VrOutParamBlock& params) const override;
};
