#pragma once
// Which handler of a metafile player plays each kind of record.

#include <cstdint>
#include <initializer_list>
#include <unordered_map>

namespace vellumry::metafile {

template <class Record, class Handler>
class RecordTable {
 public:
  RecordTable(std::initializer_list<std::pair<Handler, std::initializer_list<Record>>> families) {
    for (const auto& [handler, records] : families)
      for (const Record record : records) handlers_[static_cast<uint32_t>(record)] = handler;
  }
  // The record's handler, or nullptr for a record that draws nothing or is left unplayed.
  Handler find(Record record) const {
    const auto it = handlers_.find(static_cast<uint32_t>(record));
    return it == handlers_.end() ? nullptr : it->second;
  }

 private:
  std::unordered_map<uint32_t, Handler> handlers_;
};

}  // namespace vellumry::metafile
