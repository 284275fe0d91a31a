// Writes drawings into a Varos database file.
#pragma once

#include "peliondb/DatabaseOutput.h"

class KrVrOut final : public DatabaseOutput {
  public:
    explicit KrVrOut(TARNAINFO* info);

  private:
    void OnInit() override;
    int CheckDrawingName() override;
    std::string WrongFileText() const override;
    void OpenParameters() override;
};
