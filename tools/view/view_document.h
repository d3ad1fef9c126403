// What the viewer has open: a form with its data, and the way back to where the data came from.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/tessera/open_form.h"

namespace tessera {

class ViewDocument {
 public:
  // `name` is what the person named: a file, or a database and its table.
  ViewDocument(std::string name, OpenedForm opened) : name_(std::move(name)), opened_(std::move(opened)) {}

  const std::string& name() const { return name_; }
  // Without folders.
  std::string shortName() const;
  const Form& form() const { return opened_.form; }
  // The data came without a form.
  bool isMadeUp() const { return opened_.form.isMadeUp(); }
  const FormComponents& components() const { return opened_.components; }
  // Ids compare without ASCII case, the first in the form counts; null when there is none.
  std::shared_ptr<MemoryDataSet> findDataSet(std::u16string_view id) const;

  bool isModified() const;
  // A file that somebody else wrote since it was read, and that save() would replace; empty: none.
  std::string staleFile() const;
  // Writes every changed data set back, each as a whole or not at all. The first fault ends it: what was
  // written before it stays written and no longer counts as changed.
  std::optional<LoadError> save();

 private:
  std::string name_;
  OpenedForm opened_;
};

}  // namespace tessera
