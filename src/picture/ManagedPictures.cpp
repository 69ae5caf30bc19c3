// The record table of StdPictureEx and the pictures it manages: they report transparency, draw
// with their alpha, and give their row back once their last reference has gone.
#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"

namespace vellumry {

// The manager every managed picture holds. A picture's last release posts the removal of its row,
// to run after the current event; once the class has ended the removal finds no one.
class StdPictureEx::Keeper : public gdi::PictureManager,
                             public std::enable_shared_from_this<Keeper> {
 public:
  Keeper(StdPictureEx& owner, PictureServices& services) : owner_(&owner), services_(services) {}
  // Managed bitmaps hold premultiplied pixels and icons their alpha or mask, which the
  // picture's own drawing blends over the target at any size.
  bool Render(const gdi::Picture&, gdi::Surface&, const gdi::RenderArgs&) override { return false; }
  void released(uint32_t handle) override {
    services_.post([keeper = weak_from_this(), handle] {
      if (auto self = keeper.lock(); self && self->owner_) self->owner_->RemoveRecord(handle);
    });
  }
  void disown() { owner_ = nullptr; }

 private:
  StdPictureEx* owner_;
  PictureServices& services_;
};

StdPictureEx::StdPictureEx(PictureServices& services)
    : services_(services), keeper_(std::make_shared<Keeper>(*this, services)), records_(1) {}

StdPictureEx::~StdPictureEx() { keeper_->disown(); }

int32_t StdPictureEx::FindRecord(const gdi::Picture& picture) const {
  if (!picture) return -1;
  for (int32_t row = recordCount_ - 1; row >= 0; --row) {
    if (Record(row).DispatchKey == picture.Handle()) return row;
  }
  return -1;
}

const PictureRecord& StdPictureEx::Record(int32_t row) const {
  return records_.at(static_cast<size_t>(row + 1));
}

void StdPictureEx::AddRecord(const PictureRecord& record) {
  ++recordCount_;
  // The table grows three rows at a time.
  if (static_cast<size_t>(recordCount_) >= records_.size()) {
    records_.resize(static_cast<size_t>(recordCount_) + 3);
  }
  records_[static_cast<size_t>(recordCount_)] = record;
}

void StdPictureEx::RemoveRecord(uint32_t key) {
  for (int32_t row = 0; row < recordCount_; ++row) {
    PictureRecord& found = records_[static_cast<size_t>(row) + 1];
    if (found.PictureKey != key && found.DispatchKey != key) continue;
    // The last row takes the freed place.
    PictureRecord& last = records_[static_cast<size_t>(recordCount_)];
    if (&found != &last) found = last;
    last = PictureRecord{};
    --recordCount_;
    return;
  }
}

bool StdPictureEx::drawsHere(const gdi::Picture& picture) const {
  return picture && picture.manager() == keeper_;
}

void StdPictureEx::manage(gdi::Picture& picture) { picture.setManager(keeper_); }

bool StdPictureEx::IsManaged(const gdi::Picture& picture) const {
  return FindRecord(picture) >= 0 && drawsHere(picture);
}

void StdPictureEx::UnManage(const gdi::Picture& picture) {
  if (!drawsHere(picture) || picture.Handle() == 0) return;
  gdi::Picture plain = picture;
  plain.setManager(nullptr);
  plain.dropAlpha();  // an ordinary bitmap again, with the pixels it holds
  RemoveRecord(picture.Handle());
}

}  // namespace vellumry
