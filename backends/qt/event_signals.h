// The events of the control as signals of the widget.

#pragma once

#include <QVariantList>

#include <tessera/events.h>

namespace tessera {

class TesseraWidget;

// What must hold: the arguments are those of the event. A slot may destroy the widget.
void emitSignal(TesseraWidget& widget, EventId event, const QVariantList& arguments);

}  // namespace tessera
