// What the answer of OnExit means for an edit.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tessera {

// Why an edit ends.
enum class CommitMode : std::int32_t { FocusMoves = 1, FocusLost = 2, Escape = 3, Enter = 4 };

enum class EditOutcome { Stay, Drop, Save };

// An edit can be kept open or thrown away; every other answer lets it end in its own way.
constexpr EditOutcome editOutcome(std::int32_t answer, CommitMode mode) {
  using enum EditOutcome;
  struct Outcomes {
    EditOutcome keep, discard, other;
  };
  constexpr std::array<Outcomes, 4> byMode = {{
      {Stay, Drop, Save},  // FocusMoves
      {Drop, Drop, Save},  // FocusLost: there is nowhere to stay
      {Stay, Drop, Drop},  // Escape
      {Stay, Drop, Save},  // Enter
  }};
  const Outcomes& row = byMode[static_cast<std::size_t>(mode) - 1];
  return answer == 1 ? row.keep : answer == 3 ? row.discard : row.other;
}

}  // namespace tessera
