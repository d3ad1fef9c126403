#include "backends/qt/event_signals.h"

#include <array>
#include <type_traits>
#include <utility>

#include <tessera/tessera_widget.h>

namespace tessera {

namespace {

struct Emitter {
  void (*emit)(TesseraWidget& widget, const QVariantList& arguments);
  std::size_t arguments;
};

template <class Signal>
struct Arguments;
template <class... Types>
struct Arguments<void (TesseraWidget::*)(Types...)> {
  template <void (TesseraWidget::*signal)(Types...), std::size_t... Index>
  static void pass(TesseraWidget& widget, [[maybe_unused]] const QVariantList& list,
                   std::index_sequence<Index...>) {
    (widget.*signal)(list.value(Index).template value<std::remove_cvref_t<Types>>()...);
  }
  static constexpr std::size_t count = sizeof...(Types);
};

template <auto signal>
void emitSignal(TesseraWidget& widget, const QVariantList& arguments) {
  using Known = Arguments<decltype(signal)>;
  Known::template pass<signal>(widget, arguments, std::make_index_sequence<Known::count>{});
}

template <auto signal>
constexpr Emitter emitIt{emitSignal<signal>, Arguments<decltype(signal)>::count};

using W = TesseraWidget;

// In the order of EventId.
constexpr std::array<Emitter, eventTable.size()> emitters = {
    emitIt<&W::lButtonDown>, emitIt<&W::lButtonUp>,     emitIt<&W::lButtonDblClk>, emitIt<&W::rButtonDown>,
    emitIt<&W::rButtonUp>,   emitIt<&W::rButtonDblClk>, emitIt<&W::menuSelected>,  emitIt<&W::charTyped>,
    emitIt<&W::selChange>,   emitIt<&W::selChanged>,    emitIt<&W::focusGained>,   emitIt<&W::focusLost>,
    emitIt<&W::popup>,       emitIt<&W::enter>,         emitIt<&W::exit>,          emitIt<&W::closeUp>,
    emitIt<&W::dropDown>,    emitIt<&W::firstUp>,       emitIt<&W::lastDown>,      emitIt<&W::keyDown>,
    emitIt<&W::error>,       emitIt<&W::expanding>,     emitIt<&W::expanded>,      emitIt<&W::collapsing>,
    emitIt<&W::collapsed>,   emitIt<&W::drag>,          emitIt<&W::dragging>,      emitIt<&W::drop>,
    emitIt<&W::paste>,       emitIt<&W::copy>,          emitIt<&W::headCheckClick>};

static_assert([] {
  for (std::size_t i = 0; i < emitters.size(); ++i) {
    if (emitters[i].arguments != eventTable[i].arguments.size()) return false;
  }
  return true;
}());

}  // namespace

void emitSignal(TesseraWidget& widget, EventId event, const QVariantList& arguments) {
  emitters[static_cast<std::size_t>(event) - 1].emit(widget, arguments);
}

}  // namespace tessera
