#include "platform/metafile/MetafileObjects.h"

namespace vellumry::metafile {

int ObjectTable::addToFreeSlot(GdiObject object) {
  for (size_t i = 0; i < slots_.size(); ++i) {
    if (slots_[i].kind == GdiObject::Kind::kEmpty) {
      slots_[i] = std::move(object);
      return static_cast<int>(i);
    }
  }
  return -1;
}

bool ObjectTable::put(uint32_t index, GdiObject object) {
  if (index >= slots_.size()) return false;
  slots_[index] = std::move(object);
  return true;
}

const GdiObject* ObjectTable::get(uint32_t index) const {
  if (index >= slots_.size() || slots_[index].kind == GdiObject::Kind::kEmpty) return nullptr;
  return &slots_[index];
}

void ObjectTable::remove(uint32_t index) {
  if (index < slots_.size()) slots_[index] = GdiObject{};
}

}  // namespace vellumry::metafile
