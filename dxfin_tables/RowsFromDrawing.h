// F8 in an editor that assigns names: a row for each name that a drawing uses and the table lacks. Rows that the
// drawing does not use are shown in grey until the user does something else.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/TableNames.h"
#include "ui/Grid.h"

class RowsFromDrawing {
  public:
    struct Names {
        drawing::NameKind kind;
        int column;
        const kiro::ui::GridStorable& storable;
    };
    // drawing: the one that the command names, internal form. When there is none, or it cannot be opened, the user is
    // asked for one. Make it before the dialog is shown.
    RowsFromDrawing(kiro::ui::HostDialog& dialog, kiro::ui::Grid& grid, const char* caption, const Names& names,
                    std::string drawing);

  private:
    void Add();
    std::string Choose() const;  // "" when the user does not want to
    std::optional<std::vector<drawing::UsedName>> NamesIn(const std::string& path) const;  // none: the user was told
    void AddRows(const std::string& file, std::vector<drawing::UsedName> used);

    kiro::ui::HostDialog& dialog_;
    kiro::ui::Grid& grid_;
    const char* caption_;
    Names names_;
    std::string drawing_;
};
