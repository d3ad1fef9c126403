#include "binding/component_locator.h"

#include "shared/compare.h"

namespace tessera {

namespace {

// The first element with the id decides, also when no wanted component stands in it.
template <class Interface>
std::shared_ptr<Interface> locateInDocument(const HtmlDocument& document, const XString& id) {
  const std::int32_t length = document.length();
  for (std::int32_t index = 0; index < length; ++index) {
    const auto element = std::dynamic_pointer_cast<HtmlElement>(document.item(index));
    if (!element || !equalNoCase(element->id(), id)) continue;
    return std::dynamic_pointer_cast<Interface>(element->object());
  }
  return nullptr;
}

template <class Interface>
std::shared_ptr<Interface> locateByEnumeration(const ObjectEnumerator& enumerator, const XString& id) {
  for (const auto& object : enumerator.enumObjects()) {
    const auto candidate = std::dynamic_pointer_cast<Interface>(object);
    if (!candidate) continue;
    XString candidateId;
    candidate->GetID(candidateId);
    if (equalNoCase(candidateId, id)) return candidate;
  }
  return nullptr;
}

template <class Interface>
std::shared_ptr<Interface> locate(ClientSite* site, const XString& id, bool enumerate) {
  if (!site || id.empty()) return nullptr;
  Container* container = site->container();
  if (!container) return nullptr;
  if (const auto* document = dynamic_cast<const HtmlDocument*>(container)) {
    return locateInDocument<Interface>(*document, id);
  }
  if (const auto* items = dynamic_cast<const ItemContainer*>(container)) {
    return std::dynamic_pointer_cast<Interface>(items->getObject(id));
  }
  const auto* enumerator = dynamic_cast<const ObjectEnumerator*>(container);
  return enumerate && enumerator ? locateByEnumeration<Interface>(*enumerator, id) : nullptr;
}

}  // namespace

std::shared_ptr<DataSetControl> locateDataSet(ClientSite* site, const XString& id, bool enumerate) {
  return locate<DataSetControl>(site, id, enumerate);
}

std::shared_ptr<ImageSetControl> locateImageSet(ClientSite* site, const XString& id) {
  return locate<ImageSetControl>(site, id, true);
}

}  // namespace tessera
