#include "control/info_host.h"

#include <algorithm>

#include "binding/component_locator.h"
#include "platform/picture_loader.h"

namespace tessera {

const XExprProgram* InfoHost::compileExpression(const XString& text) {
  const XExprProgram* program = expressions_.compile(text);
  if (!program) services_.ReportError(ErrorCode::Expression);
  return program;
}

bool InfoHost::awaitsColumns(const XString& text) {
  if (expressions_.columnsAreNamed() || expressions_.compile(text)) return false;
  const std::vector<XExprError>& errors = expressions_.errors();
  return std::any_of(errors.begin(), errors.end(),
                     [](const XExprError& error) { return error.code == ExprErrorCode::UnknownVariable; });
}

// The control may be gone when an answer comes.
LateBitmap InfoHost::downloadImage(const XString& url) {
  if (url.empty() || !ports_.http || !ports_.pictures) return {};
  const LateBitmap awaited = LateBitmap::awaited();
  ports_.http->get(url.toUtf8(), [this, awaited, life = life_.watch()](std::vector<std::byte> body) {
    if (life.expired() || body.empty()) return;
    ports_.pictures->load(std::move(body), [this, awaited, life](const BitmapRef& picture) {
      if (life.expired() || !picture) return;
      awaited.arrive(picture);
      arrived_();
    });
  });
  return awaited;
}

std::shared_ptr<DataSetControl> InfoHost::findDataSet(const XString& id) {
  return locateDataSet(site_, id, false);
}

}  // namespace tessera
