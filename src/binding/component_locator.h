// Finds a component on the host by its id.

#pragma once

#include <memory>

#include <tessera/data_set_control.h>
#include <tessera/hosting.h>
#include <tessera/image_set_control.h>

namespace tessera {

// Containers of each kind are searched by their own route, and the first route that applies is final: an HTML
// document by the ids of its elements, an item container by name, any other container (only with
// `enumerate`) by asking each of its objects for its id. Ids compare without ASCII case, except by name,
// which is the container's affair. Null when nothing is found, when the id is empty and without a site.
std::shared_ptr<DataSetControl> locateDataSet(ClientSite* site, const XString& id, bool enumerate);
std::shared_ptr<ImageSetControl> locateImageSet(ClientSite* site, const XString& id);

}  // namespace tessera
