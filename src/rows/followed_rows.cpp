#include "rows/followed_rows.h"

#include <algorithm>
#include <numeric>

namespace tessera {

FollowedRows::FollowedRows(const std::vector<Row>& rows)
    : places_(rows.size()), given_(rows.size()), isGone_(rows.size()), shifts_(rows.size() + 1) {
  std::vector<std::size_t> order(rows.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(),
            [&rows](std::size_t a, std::size_t b) { return rows[a].number < rows[b].number; });
  for (std::size_t place = 0; place < order.size(); ++place) {
    places_[order[place]] = place;
    given_[place] = rows[order[place]].number;
  }
}

Row FollowedRows::at(std::size_t index) const {
  const std::size_t place = places_[index];
  return isGone_[place] ? noRow : Row{numberAt(place)};
}

std::int32_t FollowedRows::numberAt(std::size_t place) const {
  std::int32_t number = given_[place];
  for (std::size_t node = place + 1; node > 0; node &= node - 1) number += shifts_[node];
  return number;
}

std::size_t FollowedRows::firstFrom(std::int32_t number) const {
  std::size_t low = 0;
  for (std::size_t high = given_.size(); low < high;) {
    const std::size_t middle = (low + high) / 2;
    if (numberAt(middle) < number) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

void FollowedRows::addFrom(std::size_t place, std::int32_t delta) {
  for (std::size_t node = place + 1; node < shifts_.size(); node += node & (~node + 1))
    shifts_[node] += delta;
}

// Those that went keep the number of the place where they stood, so that the order holds.
void FollowedRows::renumber(const RowsChanged& change) {
  const std::size_t first = firstFrom(change.first);
  const std::size_t behind = change.gone > 0 ? firstFrom(addClamped(change.first, change.gone)) : first;
  for (std::size_t place = first; place < behind; ++place) {
    isGone_[place] = true;
    const std::int32_t delta = change.first - numberAt(place);
    addFrom(place, delta);
    addFrom(place + 1, -delta);
  }
  addFrom(behind, change.come - change.gone);
}

}  // namespace tessera
