// Drive, group and user of a Pelion database on the drives of the computer.
#pragma once

#include "peliondb/NameChooser.h"

class KrPlInDrive final : public NameChooser {
  public:
    explicit KrPlInDrive(TARNAINFO* info);

  private:
    void OnInit() override;
    void Store() override;

    std::vector<std::string> Groups() const;
    std::vector<std::string> Users() const;
    void DriveChosen();
    void GroupChosen();

    NameList drives_;
    NameList groups_;
    NameList users_;
};
