// Which grid shows more about the rows of which other one.
#pragma once

#include <vector>

// A grid as the ones it is linked with know it.
class LinkedGrid {
  public:
    // Takes what is being edited, here and in the grids that show more about this one. False when it was refused: that
    // editor is open and has the focus.
    virtual bool TakeEdits() = 0;
    virtual void DropEdits() = 0;  // forgets it, here and there

  protected:
    ~LinkedGrid() = default;
};

// The links of one grid; they end with it. A parent may be the child of another grid, but not of its own children.
class KrGridLinks {
  public:
    explicit KrGridLinks(LinkedGrid& grid) : grid_(grid) {}
    KrGridLinks(const KrGridLinks&) = delete;
    KrGridLinks& operator=(const KrGridLinks&) = delete;
    ~KrGridLinks();

    void SetParent(KrGridLinks* parent);  // null: none
    bool TakeChildrensEdits() const;
    void DropChildrensEdits() const;

  private:
    LinkedGrid& grid_;
    KrGridLinks* parent_ = nullptr;
    std::vector<KrGridLinks*> children_;
};
