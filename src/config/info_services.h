// What the Info readers need from the grid around them.

#pragma once

#include <memory>

#include <tessera/data_set_control.h>
#include <tessera/xstring.h>

#include "expr/xexpr_program.h"
#include "platform/document.h"
#include "shared/late_bitmap.h"

namespace tessera {

class InfoServices {
 public:
  virtual ~InfoServices() = default;

  virtual DocumentReader& documents() = 0;
  // Null when the text does not compile; the failure has been reported then.
  virtual const XExprProgram* compileExpression(const XString& text) = 0;
  // Whether the text has a word that means nothing so far and may be a column's name, while no data set has
  // named its columns.
  virtual bool awaitsColumns(const XString&) { return false; }
  // The picture at an address, which comes later if there is one; none when `url` is empty.
  virtual LateBitmap downloadImage(const XString& url) = 0;
  // A further data set on the host, not subscribed to; null when there is none.
  virtual std::shared_ptr<DataSetControl> findDataSet(const XString& id) = 0;
};

}  // namespace tessera
