#include "platform/toolkit/Properties.h"

namespace vellumry::tk {

const FieldTable::Entry* FieldTable::find(std::string_view name) const {
  for (const Entry& e : entries_)
    if (iequals(e.name, name)) return &e;
  return nullptr;
}

Value FieldTable::get(std::string_view name, std::optional<int> index) const {
  const Entry* e = find(name);
  if (!e) raise(err::NotSupported, std::string(name));
  if (e->size && !index) raise(err::SubscriptOutOfRange, std::string(name));
  return e->get(index.value_or(0));
}

void FieldTable::set(std::string_view name, std::optional<int> index, const Value& v) {
  const Entry* e = find(name);
  if (!e) raise(err::NotSupported, std::string(name));
  if (e->size && !index) raise(err::SubscriptOutOfRange, std::string(name));
  e->set(index.value_or(0), v);
}

std::vector<std::pair<std::string, std::vector<Value>>> FieldTable::all() const {
  std::vector<std::pair<std::string, std::vector<Value>>> out;
  for (const Entry& e : entries_) {
    std::vector<Value> values;
    if (e.size) {
      for (int i = 0, n = e.size(); i < n; ++i) values.push_back(e.get(i));
    } else {
      values.push_back(e.get(0));
    }
    out.emplace_back(e.name, std::move(values));
  }
  return out;
}

}  // namespace vellumry::tk
