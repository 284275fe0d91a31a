// Drive, group and user of a Pelion database on the drives of the computer.
#pragma once

#include "peliondb/NameChooser.h"
#include "peliondb/PelionTree.h"

class KrPlInDrive final : public NameChooser {
  public:
    explicit KrPlInDrive(TARNAINFO* info);

  private:
    enum Lists { kDrives, kGroups, kUsers };

    void OnInit() override;
    void Store() override;

    std::vector<std::string> Drives();
    std::vector<std::string> Groups();
    std::vector<std::string> Users();
    std::vector<std::string> Told(Lists list, PelionNames found);  // when the drive did not answer
    void DriveChosen();
    void GroupChosen();

    PelionTree tree_;
    NameList drives_;
    NameList groups_;
    NameList users_;
};
