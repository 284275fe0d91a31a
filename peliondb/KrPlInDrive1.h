// Group and user of a Pelion floppy.
#pragma once

#include "peliondb/NameChooser.h"

class KrPlInDrive1 final : public NameChooser {
  public:
    explicit KrPlInDrive1(TARNAINFO* info);

  private:
    void OnInit() override;
    void Store() override;

    std::vector<std::string> Groups() const;
    std::vector<std::string> Users() const;

    NameList groups_;
    NameList users_;
};
