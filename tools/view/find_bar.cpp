#include "tools/view/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QToolButton>

#include "tools/view/grid_commands.h"

namespace tessera {

namespace {

// Short enough for a person not to feel it, long enough for the clock not to count.
constexpr std::chrono::milliseconds sliceTime{15};

QToolButton* addButton(QHBoxLayout& row, const QString& text, const QString& hint) {
  auto* const button = new QToolButton;
  button->setText(text);
  button->setToolTip(hint);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  row.addWidget(button);
  return button;
}

}  // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      text_(new QLineEdit),
      matchCase_(new QCheckBox(tr("Match case"))),
      message_(new QLabel) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(6, 3, 6, 3);
  auto* const label = new QLabel(tr("Find:"));
  label->setBuddy(text_);
  row->addWidget(label);
  text_->setClearButtonEnabled(true);
  text_->setMinimumWidth(220);
  row->addWidget(text_);
  connect(addButton(*row, tr("Previous"), tr("Shift+F3")), &QToolButton::clicked, this,
          [this] { find(true); });
  connect(addButton(*row, tr("Next"), tr("F3")), &QToolButton::clicked, this, [this] { find(false); });
  row->addWidget(matchCase_);
  message_->setTextFormat(Qt::PlainText);
  // A long message gives way instead of making the window wider.
  message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  row->addWidget(message_, 1);
  connect(addButton(*row, tr("Close"), tr("Escape")), &QToolButton::clicked, this, [this] {
    cancel();
    hide();
    Q_EMIT closed();
  });
  timer_.setInterval(0);
  connect(&timer_, &QTimer::timeout, this, &FindBar::runSlice);
  connect(text_, &QLineEdit::textEdited, this, [this] { cancel(), say({}); });
  hide();
}

void FindBar::setGrid(Tessera* grid) {
  cancel();
  say({});
  grid_ = grid;
}

void FindBar::open() {
  show();
  text_->setFocus(Qt::ShortcutFocusReason);
  text_->selectAll();
  Q_EMIT changed();
}

void FindBar::find(bool backwards) {
  if (!grid_) return;
  if (text_->text().isEmpty()) return open();
  show();
  search_.emplace(*grid_, SearchQuery{text_->text(), matchCase_->isChecked(), backwards});
  timer_.start();
  say({});
}

void FindBar::runSlice() {
  switch (search_->run(sliceTime)) {
    case CellSearch::State::Running: {
      const QLocale numbers;
      return say(tr("Row %1 of %2. Escape stops the search.")
                     .arg(numbers.toString(search_->rowsSeen()), numbers.toString(search_->rowCount())));
    }
    case CellSearch::State::Found:
      return showHit();
    case CellSearch::State::NotFound:
      cancel();
      return say(tr("No cell has \"%1\".").arg(text_->text()));
  }
}

// The column first: it ends a selection of whole rows.
void FindBar::showHit() {
  const CellSearch hit = *search_;
  cancel();
  grid_->put_ColumnPosition(hit.column());
  grid_->put_RowPosition(hit.row());
  std::int32_t row = 0;
  grid_->get_RowPosition(row);
  if (row != hit.row()) return say(tr("Row %1 has it, but the focus may not go there.").arg(hit.row()));
  QString text =
      tr("Row %1, column %2")
          .arg(QLocale().toString(hit.row()), GridCommands(*grid_, nullptr).columnName(hit.column()));
  if (hit.wrapped()) text += tr(", around the end");
  say(text);
}

bool FindBar::giveWay() {
  if (isSearching()) {
    cancel();
    say(tr("Stopped."));
    return true;
  }
  if (isHidden()) return false;
  hide();
  Q_EMIT closed();
  return true;
}

void FindBar::cancel() {
  timer_.stop();
  search_.reset();
}

void FindBar::say(const QString& text) {
  message_->setText(text);
  Q_EMIT changed();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return find(event->modifiers().testFlag(Qt::ShiftModifier));
    case Qt::Key_Escape:
      giveWay();
      return;
    default:
      return QWidget::keyPressEvent(event);
  }
}

}  // namespace tessera
