#include "expr/expression_engine.h"

#include <iterator>

namespace tessera {
namespace {

class NoHost : public ExpressionHost {
 public:
  std::int32_t ColumnIndex(const XString&) const override { return -1; }
  HResult ColumnValue(std::int32_t, std::int32_t, XValue&) const override { return E_NOTIMPL; }
  HResult KeywordValue(std::int32_t, std::int32_t, XValue&) const override { return E_NOTIMPL; }
  HResult AggregateValue(std::int32_t, Aggregate, const XString&, std::int32_t, XValue&) const override {
    return E_NOTIMPL;
  }
};

const NoHost noHost;

}  // namespace

ExpressionEngine::ExpressionEngine() : context_{&noHost} {}

void ExpressionEngine::addColumnName(const XString& name) {
  if (!compiler_.names().matchColumnName(name)) compiler_.names().addColumnName(name);
}

const XExprProgram* ExpressionEngine::compile(std::u16string_view text) {
  errors_.clear();
  try {
    return programs_.emplace_back(compiler_.compile(text)).get();
  } catch (const XExprParserException& exception) {
    errors_ = exception.errors();
    return nullptr;
  }
}

void ExpressionEngine::freePrograms(const EvalState& state) {
  std::move(programs_.begin(), programs_.end(), std::back_inserter(retired_));
  programs_.clear();
  if (!state.isRunning()) retired_.clear();
}

}  // namespace tessera
