#include "links/Links.h"

#include "links/LinkFile.h"
#include "platform/os/FileSystem.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

Links::Links(Program& program, Form1Controls& form, Grid& grid)
    : program_(program), form_(form), grid_(grid) {
  form.List.onClick = [this](int i) { List_Click(i); };
  form.List.onDblClick = [this](int i) { List_DblClick(i); };
  form.fields().add("listBusy", listBusy);
  form.fields().add("sSortName", sSortName);
}

Links& Links::of(Program& program) { return dynamic_cast<Links&>(program.Form1.form()); }

std::string Links::listPath() const {
  return program_.places.programFolder + "/" + std::string(kLinkFileName);
}

void Links::pLoadlist() {
  form_.List(0).Clear();
  form_.List(1).Clear();
  // A missing or unreadable file is an empty list, without a word.
  const auto bytes = os::readWholeFile(listPath());
  if (!bytes) return;
  const std::string_view text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
  for (const LinkRecord& record : parseLinkList(text)) {
    form_.List(0).AddItem(record.name);
    form_.List(1).AddItem(record.target);
  }
}

void Links::btnSAVE_Click() {
  std::vector<LinkRecord> records;
  for (int i = 0; i != form_.List(0).ListCount(); ++i)
    records.push_back({form_.List(0).List(i), form_.List(1).List(i)});
  // A list that can't be written stays as it is in memory, and the file keeps its old bytes;
  // the next change tries again.
  os::writeFileAtomically(listPath(), formatLinkList(records));
}

}  // namespace vellumry
