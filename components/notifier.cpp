#include "components/notifier.h"

namespace tessera {

void Notifier::sortReset() {
  sinks_.each([](auto& sink) { return sink.SortReset(), true; });
}
void Notifier::structureChanged(std::int32_t value) {
  sinks_.each([=](auto& sink) { return sink.StructureChanged(value), true; });
}
void Notifier::rowsAdded(std::int32_t rowCount) {
  sinks_.each([=](auto& sink) { return sink.RowsAdded(rowCount), true; });
}
void Notifier::dataChanged(std::int32_t value) {
  sinks_.each([=](auto& sink) { return sink.DataChanged(value), true; });
}
bool Notifier::canChange(std::int32_t value) {
  bool all = true;
  sinks_.each([&](auto& sink) {
    VariantBool allowed = VARIANT_TRUE;
    if (succeeded(sink.CanChange(value, allowed))) all = allowed != VARIANT_FALSE;
    return all;
  });
  return all;
}
void Notifier::currentRowChanged(std::int32_t row) {
  sinks_.each([=](auto& sink) { return sink.CurrentRowChanged(row), true; });
}
void Notifier::rowsReset() {
  sinks_.each([](auto& sink) { return sink.RowsReset(), true; });
}
void Notifier::reserved(std::int32_t value) {
  sinks_.each([=](auto& sink) { return sink.Reserved(value), true; });
}
void Notifier::rowInserted(std::int32_t row) {
  sinks_.each([=](auto& sink) { return sink.RowInserted(row), true; });
}
void Notifier::rowDeleted(std::int32_t row) {
  sinks_.each([=](auto& sink) { return sink.RowDeleted(row), true; });
}
void Notifier::cellChanged(std::int32_t row, std::int32_t column) {
  sinks_.each([=](auto& sink) { return sink.CellChanged(row, column), true; });
}
void Notifier::sourceClosing(bool flag) {
  sinks_.each([=](auto& sink) { return sink.SourceClosing(flag ? VARIANT_TRUE : VARIANT_FALSE), true; });
  if (!flag) sinks_.unadviseAll();
}

}  // namespace tessera
