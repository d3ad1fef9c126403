#include "tools/tessera/render.h"

#include <set>

#include "backends/raster/png_writer.h"
#include "shared/change_type.h"
#include "tools/tessera/form_host.h"

namespace tessera {

namespace {

// Tells of each fault once.
class Warnings : public ITesseraEvents {
 public:
  explicit Warnings(std::ostream& out) : out_(out) {}

  HResult Invoke(EventId id, std::span<const XValue> arguments, XValue&) override {
    if (id != EventId::OnError || arguments.size() < 2) return S_OK;
    const std::string text = textOf(arguments[1]).toUtf8();
    if (told_.insert(text).second) out_ << "tessera: " << text << '\n';
    return S_OK;
  }

 private:
  std::ostream& out_;
  std::set<std::string> told_;
};

}  // namespace

std::optional<FormError> renderForm(OpenedForm opened, const RenderOptions& options, std::ostream& warnings) {
  Size& client = opened.form.client;
  client = {options.width.value_or(client.width), options.height.value_or(client.height)};
  Warnings listener(warnings);
  FormHost host(std::move(opened), &listener);
  host.window()->paint();
  if (writePng(options.path, host.window()->canvas().snapshot())) return std::nullopt;
  return FormError{options.path, 0, "the picture cannot be written"};
}

}  // namespace tessera
