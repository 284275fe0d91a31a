#include "KrGridLinks.h"

KrGridLinks::~KrGridLinks() {
    SetParent(nullptr);
    for (KrGridLinks* child : children_) child->parent_ = nullptr;
}

void KrGridLinks::SetParent(KrGridLinks* parent) {
    for (const KrGridLinks* above = parent; above; above = above->parent_)
        if (above == this) return;
    if (parent == parent_) return;
    if (parent) parent->children_.push_back(this);  // first: it may fail
    if (parent_) std::erase(parent_->children_, this);
    parent_ = parent;
}

bool KrGridLinks::TakeChildrensEdits() const {
    // The dialog hears of what is taken and may end a link then.
    for (std::size_t i = 0; i < children_.size(); ++i)
        if (!children_[i]->grid_.TakeEdits()) return false;
    return true;
}

void KrGridLinks::DropChildrensEdits() const {
    for (const KrGridLinks* child : children_) child->grid_.DropEdits();
}
