// What the user did to a grid, step by step, so that it can be undone and redone. A step holds what has changed and
// nothing else: a text, or rows that came or went. Every change is its own reverse once it is toggled.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/GridModel.h"

namespace kiro::ui {

struct GridChange {
    struct Flag {
        int row;  // from the first of the rows
        int column;
        int available;
    };

    int row = 0;
    int column = -1;                 // -1: whole rows
    int count = 1;                   // of rows
    std::string text;                // the other one
    std::unique_ptr<KeptRows> kept;  // the rows while they are not in the grid
    std::vector<Flag> flags;         // of theirs, other than those of the columns
};

struct GridStep {
    std::vector<GridChange> changes;
    std::pair<int, int> before;  // the current cell
    std::pair<int, int> after;
};

class GridHistory {
  public:
    using Place = std::pair<int, int>;

    // Between them all changes are one step. One within the other is part of that.
    void Begin(Place current);
    bool End(Place current);  // whether anything has changed
    // Ends the step that changes outside of these two make together: those of a button, say.
    void EndLoose() { loose_ = false; }

    void Add(GridChange change, Place current);
    // The step made last, to be undone for good: what could be redone before it can be again.
    std::unique_ptr<GridStep> TakeBack();

    // The step to toggle: its changes from the last to the first to undo it, in their order to redo it. Null: none.
    GridStep* Undo();
    GridStep* Redo();
    void Forget();

  private:
    using Steps = std::vector<std::unique_ptr<GridStep>>;

    Steps done_;
    Steps undone_;
    Steps undoneBefore_;  // the step made last
    std::unique_ptr<GridStep> open_;
    int depth_ = 0;
    bool loose_ = false;
};

}  // namespace kiro::ui
