// The surroundings of the Info readers, under the test's control.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "backends/native/xml_document_reader.h"
#include "config/info_services.h"
#include "tests/support/null_data_set.h"

namespace tessera {

// Gives one value for every row, or fails.
class FakeProgram : public XExprProgram {
 public:
  FakeProgram() = default;
  explicit FakeProgram(XValue value) : value_(std::move(value)), fails_(false) {}

  const XValue* evaluate(EvalState&) const override { return fails_ ? nullptr : &value_; }

 private:
  XValue value_;
  bool fails_ = true;
};

// Gives the number of the row.
class RowProgram : public XExprProgram {
 public:
  const XValue* evaluate(EvalState& state) const override {
    value_.setInt(state.ExprRow);
    return &value_;
  }

 private:
  mutable XValue value_;
};

class FakeInfoServices : public InfoServices {
 public:
  DocumentReader& documents() override { return documents_; }
  // The texts that compile are the keys of `programs`.
  const XExprProgram* compileExpression(const XString& text) override {
    compiled.push_back(text.toUtf8());
    const auto found = programs.find(text.toUtf8());
    return found == programs.end() ? nullptr : found->second.get();
  }
  LateBitmap downloadImage(const XString& url) override {
    downloads.push_back(url.toUtf8());
    const auto found = images.find(url.toUtf8());
    return found == images.end() ? nullptr : found->second;
  }
  std::shared_ptr<DataSetControl> findDataSet(const XString& id) override {
    return id == u"codes" ? codes : nullptr;
  }

  const XExprProgram* addProgram(const std::string& text, const XValue& value) {
    return (programs[text] = std::make_unique<FakeProgram>(value)).get();
  }
  BitmapRef addImage(const std::string& url) { return images[url] = std::make_shared<const Bitmap>(1, 1); }

  std::map<std::string, std::unique_ptr<XExprProgram>> programs;
  std::map<std::string, BitmapRef> images;
  std::shared_ptr<DataSetControl> codes = std::make_shared<NullDataSet>();
  std::vector<std::string> compiled;   // every text that was to be compiled
  std::vector<std::string> downloads;  // every address that was asked for

 private:
  XmlDocumentReader documents_;
};

}  // namespace tessera
