// Reads drawings of Pelion: of its database, a DOS file or a floppy.
#pragma once

#include "peliondb/DatabaseInput.h"

class KrPlIn final : public DatabaseInput {
  public:
    explicit KrPlIn(TARNAINFO* info);

  private:
    // What differs between the variants.
    struct Variant {
        const char* title;
        const char* sources[2];  // the captions of the first two
        int fileSource;          // which of them is the DOS file
        bool choosesDrive;       // the second one is on a drive that the user chooses
    };
    static const Variant kPelion;
    static const Variant kPlw;
    static const Variant& VariantOf(const TARNAINFO& info) { return info.database.plwVariant ? kPlw : kPelion; }

    void OnInit() override;
    void StoreOwnChoices() override;
    std::string SubModelForRecord(const std::string& sjis) const override;
    std::string FileForRecord() const override;
    bool IsFromFile() const override { return source_.Selected() == variant_.fileSource; }
    bool ChoosePlace() override;
    int ListDrawings() override;
    void TakeDrawings() override;

    void SourceChosen(int source);

    const Variant& variant_;
    kiro::ui::RadioGroup symbols_;
    kiro::ui::RadioGroup source_;
};
