#include "ui/GridHistory.h"

namespace kiro::ui {

void GridHistory::Begin(Place current) {
    EndLoose();
    if (depth_++ > 0) return;
    undoneBefore_.clear();
    open_ = std::make_unique<GridStep>();
    open_->before = current;
}

bool GridHistory::End(Place current) {
    if (--depth_ > 0 || !open_) return false;
    auto step = std::move(open_);
    if (step->changes.empty()) return false;
    step->after = current;
    undoneBefore_ = std::exchange(undone_, {});
    done_.push_back(std::move(step));
    return true;
}

std::unique_ptr<GridStep> GridHistory::TakeBack() {
    auto step = std::move(done_.back());
    done_.pop_back();
    undone_ = std::exchange(undoneBefore_, {});
    return step;
}

void GridHistory::Add(GridChange change, Place current) {
    if (open_) return open_->changes.push_back(std::move(change));
    undone_.clear();
    if (!loose_) {
        done_.push_back(std::make_unique<GridStep>());
        done_.back()->before = done_.back()->after = current;
    }
    loose_ = true;
    done_.back()->changes.push_back(std::move(change));
}

GridStep* GridHistory::Undo() {
    EndLoose();
    if (done_.empty() || depth_ > 0) return nullptr;
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    return undone_.back().get();
}

GridStep* GridHistory::Redo() {
    EndLoose();
    if (undone_.empty() || depth_ > 0) return nullptr;
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    return done_.back().get();
}

void GridHistory::Forget() {
    done_.clear();
    undone_.clear();
    undoneBefore_.clear();
    if (open_) open_->changes.clear();
    loose_ = false;
}

}  // namespace kiro::ui
