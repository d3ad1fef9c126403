// The subscribers of a data set and the twelve calls to them.

#pragma once

#include <cstdint>

#include <tessera/data_set_control.h>

#include "components/sink_list.h"

namespace tessera {

class Notifier {
 public:
  HResult advise(DataSetNotifications* sink) { return sinks_.advise(sink); }
  void unadvise(DataSetNotifications* sink) { sinks_.unadvise(sink); }

  void sortReset();
  void structureChanged(std::int32_t value);
  void rowsAdded(std::int32_t rowCount);
  void dataChanged(std::int32_t value);
  // False as soon as one subscriber refuses; the others are not asked then.
  bool canChange(std::int32_t value);
  void currentRowChanged(std::int32_t row);
  void rowsReset();
  void reserved(std::int32_t value);
  void rowInserted(std::int32_t row);
  void rowDeleted(std::int32_t row);
  void cellChanged(std::int32_t row, std::int32_t column);
  // With a false `flag` everybody is unsubscribed afterwards.
  void sourceClosing(bool flag);

 private:
  SinkList<DataSetNotifications> sinks_;
};

}  // namespace tessera
