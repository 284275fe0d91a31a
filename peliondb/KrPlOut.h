// Writes drawings for Pelion: into a DOS file, its database or a floppy.
#pragma once

#include "peliondb/DatabaseOutput.h"

class KrPlOut final : public DatabaseOutput {
  public:
    explicit KrPlOut(TARNAINFO* info);

  private:
    // The radio buttons of the destination, in their order. Without a database the second one is the floppy.
    enum Destination { kFile, kSecond, kThird };

    void OnInit() override;
    bool IsToFile() const override { return destination_.Selected() == kFile; }
    bool CheckOwn() override;
    void StoreOwn() override;
    int CheckDrawingName() override;
    std::string WrongFileText() const override { return "ＤＯＳファイルではありません。"; }
    bool Overwrites() override;
    void OpenParameters() override;

    void DestinationChosen(int destination);
    void FollowDestination(int destination);
    void ChooseDrive();
    void ChooseGroup();
    void ChooseUser();
    void ChoosePlace(bool driveKnown, bool groupKnown);
    int Source() const;

    bool plw_;
    kiro::ui::RadioGroup destination_;
};
