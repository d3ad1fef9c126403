// What the Info readers ask of the control.

#pragma once

#include <functional>
#include <utility>

#include <tessera/hosting.h>

#include "config/info_services.h"
#include "expr/expression_engine.h"
#include "platform/lifeline.h"
#include "platform/ports.h"
#include "shared/grid_services.h"

namespace tessera {

class InfoHost : public InfoServices {
 public:
  // `arrived` runs when a downloaded picture has come.
  InfoHost(const Ports& ports, ExpressionEngine& expressions, GridServices& services,
           std::function<void()> arrived)
      : ports_(ports), expressions_(expressions), services_(services), arrived_(std::move(arrived)) {}

  void setSite(ClientSite* site) { site_ = site; }

  DocumentReader& documents() override { return ports_.documents; }
  const XExprProgram* compileExpression(const XString& text) override;
  bool awaitsColumns(const XString& text) override;
  LateBitmap downloadImage(const XString& url) override;
  std::shared_ptr<DataSetControl> findDataSet(const XString& id) override;

 private:
  const Ports& ports_;
  ExpressionEngine& expressions_;
  GridServices& services_;
  std::function<void()> arrived_;
  ClientSite* site_ = nullptr;
  Lifeline life_;  // of the answers
};

}  // namespace tessera
