#include "tools/view/viewer_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLocale>
#include <QMenuBar>
#include <QScreen>
#include <QShowEvent>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "backends/qt/qt_text.h"
#include "shared/utf.h"
#include "tools/tessera/form_property_bag.h"
#include "tools/view/load_dialog.h"
#include "tools/view/message_box.h"
#include "tools/view/wait_cursor.h"

namespace tessera {

namespace {

QString fromUtf8(const std::string& text) { return QString::fromStdString(text); }

QLabel* emptyPage() {
  auto* const label =
      new QLabel(ViewerWindow::tr("Open a form, a CSV file or an SQLite database with Ctrl+O."));
  label->setAlignment(Qt::AlignCenter);
  label->setMinimumSize(640, 360);
  label->setFocusPolicy(Qt::NoFocus);
  return label;
}

}  // namespace

// While it lives a person can do nothing to what is open.
class ViewerWindow::InputStop {
 public:
  explicit InputStop(ViewerWindow& window)
      : window_(window), wasFinding_(window.find_->isAncestorOf(window.focusWidget())) {
    window.isReading_ = true;
    window.setEnabled(false);
  }
  ~InputStop() {
    window_.setEnabled(true);
    window_.isReading_ = false;
    if (window_.widget_ && !wasFinding_) window_.widget_->focusGrid();
    if (wasFinding_) window_.find_->open();
  }
  InputStop(const InputStop&) = delete;
  InputStop& operator=(const InputStop&) = delete;

 private:
  ViewerWindow& window_;
  bool wasFinding_;  // the find bar had the keyboard
};

ViewerWindow::ViewerWindow() : empty_(emptyPage()), find_(new FindBar), status_(new StatusLine) {
  auto* const page = new QWidget;
  auto* const column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(empty_, 1);
  column->addWidget(find_);
  setCentralWidget(page);
  setStatusBar(status_);
  makeActions();
  connect(find_, &FindBar::changed, this, &ViewerWindow::noteChange);
  connect(find_, &FindBar::closed, this, [this] {
    if (widget_) widget_->focusGrid();
  });
  connect(status_, &StatusLine::changed, this, &ViewerWindow::noteChange);
  update_.setSingleShot(true);
  connect(&update_, &QTimer::timeout, this, &ViewerWindow::showState);
  showState();
}

ViewerWindow::~ViewerWindow() { dropDocument(); }

Tessera* ViewerWindow::grid() { return widget_ ? dynamic_cast<Tessera*>(&widget_->grid()) : nullptr; }

GridCommands ViewerWindow::commands() {
  return {*grid(), document_->findDataSet(utf16FromUtf8(widget_->dataID().toStdString()))};
}

ViewerWindow::OpenResult ViewerWindow::open(const std::string& name) {
  if (isReading_) return {};
  const bool wasModified = document_ && document_->isModified();
  std::optional<Loaded<OpenedForm>> loaded;
  {
    const InputStop noInput(*this);
    LoadDialog dialog(this, fromUtf8(name).section('/', -1));
    loaded = openForm(name, dialog.progress());
    if (!*loaded && dialog.wasCancelled()) return {};
  }
  Loaded<OpenedForm>& opened = *loaded;
  if (!opened) return {.fault = opened.error()};
  // Whoever asked before the reading knows nothing of a change that came during it.
  if (!wasModified && !mayDropChanges()) return {};
  showDocument(std::make_unique<ViewDocument>(name, std::move(*opened)));
  return {.opened = true};
}

// The grid goes before the pictures and rows that it shows.
void ViewerWindow::dropDocument() {
  find_->setGrid(nullptr);
  watch_.reset();
  delete widget_;
  widget_ = nullptr;
  document_.reset();
  status_->forgetErrors();
}

void ViewerWindow::showDocument(std::unique_ptr<ViewDocument> document) {
  // What is read again keeps the size that the person gave the window.
  const bool isNew = !document_ || document_->name() != document->name();
  dropDocument();
  status_->say({});
  document_ = std::move(document);
  widget_ = new TesseraWidget(centralWidget());
  listenToGrid();
  fillPage();
  watch_ = std::make_unique<DataWatch>(*document_, [this] { noteChange(); });
  empty_->hide();
  static_cast<QVBoxLayout*>(centralWidget()->layout())->insertWidget(0, widget_, 1);
  widget_->show();
  find_->setGrid(grid());
  if (isNew && !isMaximized() && !isFullScreen()) fitToForm();
  widget_->focusGrid();
  showState();
}

// Of components with one id the first counts.
void ViewerWindow::fillPage() {
  const Form& form = document_->form();
  widget_->setFont(QFont(fromUtf8(form.font), form.fontSize));
  widget_->setCodePage(static_cast<int>(form.codePage));
  const FormComponents& components = document_->components();
  for (std::size_t i = form.dataSets.size(); i-- > 0;) {
    widget_->addDataSet(fromUtf8(form.dataSets[i].options.id), components.dataSets[i].rows);
  }
  for (std::size_t i = form.imageSets.size(); i-- > 0;) {
    widget_->addImageSet(fromUtf8(form.imageSets[i].id), components.imageSets[i]);
  }
  FormPropertyBag bag(form.properties);
  widget_->load(bag);
}

void ViewerWindow::listenToGrid() {
  using Grid = TesseraWidget;
  const auto note = [this] { noteChange(); };
  connect(widget_, &Grid::selChanged, this, note);
  connect(widget_, &Grid::lButtonUp, this, note);
  connect(widget_, &Grid::headCheckClick, this, note);
  connect(widget_, &Grid::error, this, [this](int, const QString& text) { status_->addError(text); });
  connect(widget_, &Grid::copy, this, &ViewerWindow::copy);
  connect(widget_, &Grid::paste, this, &ViewerWindow::paste);
  // What was said is over when the person goes on.
  connect(widget_, &Grid::selChange, this, [this] { status_->say({}); });
  connect(widget_, &Grid::enter, this, [this] { status_->say({}); });
  connect(widget_, &Grid::exit, this,
          [this](const QString&, int, const QString& before) { noteTyped(before); });
}

// The window becomes as large as gives the grid the client area that its form says, within the screen. Before
// it is shown nothing has its place yet: then the bands around the grid say how large they want to be.
void ViewerWindow::fitToForm() {
  const Size wanted = wantedClient();
  if (!isVisible()) {
    int height = wanted.height;
    for (const QWidget* const band :
         {static_cast<QWidget*>(menuBar()), static_cast<QWidget*>(tools_), static_cast<QWidget*>(status_)}) {
      height += band->sizeHint().height();
    }
    return takeSize({wanted.width, height});
  }
  // Bars that come or go with the size change the room beside them: a few rounds settle it.
  constexpr int rounds = 3;
  for (int round = 0; round < rounds; ++round) {
    const Window* const client = grid()->parts().window;
    if (!client) return;
    const Size present = client->clientSize();
    takeSize(size() + QSize(wanted.width - present.width, wanted.height - present.height));
  }
}

// A form that was made up has no width of its own: it gets that of its columns.
Size ViewerWindow::wantedClient() {
  Size wanted = document_->form().client;
  if (!document_->isMadeUp()) return wanted;
  for (const ColumnRecord& column : grid()->parts().config.columns) {
    wanted.width = std::max(wanted.width, column.header.rect.right);
  }
  return wanted;
}

void ViewerWindow::takeSize(QSize size) {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  resize(screen ? size.boundedTo(screen->availableSize()) : size);
}

void ViewerWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (event->spontaneous()) return;
  QTimer::singleShot(0, this, [this] {
    if (document_) fitToForm();
  });
}

void ViewerWindow::noteTyped(const QString& before) {
  if (!watch_) return;
  typed_ = {before, toQString(grid()->parts().editor.box->text()), watch_->counts()};
  noteChange();
}

// Who typed what the data cannot hold would else see it vanish.
bool ViewerWindow::tellRefusal() {
  const auto typed = std::exchange(typed_, std::nullopt);
  if (!typed || !watch_ || watch_->counts().asked == typed->counts.asked) return false;
  if (watch_->counts().written != typed->counts.written) return false;
  if (!GridCommands::isRefused(typed->before, typed->text, typed->before)) return false;
  status_->say(GridCommands::refusal());
  return true;
}

// Keys that nobody below claimed pass here before any shortcut has them.
bool ViewerWindow::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    if (!mayTakeShortcut(static_cast<QKeyEvent&>(*event))) {
      event->accept();
      return true;
    }
  }
  return QMainWindow::event(event);
}

// What neither the grid nor its editor had a use for.
void ViewerWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && find_->giveWay()) return;
  QMainWindow::keyPressEvent(event);
}

void ViewerWindow::showState() {
  tellRefusal();
  for (QAction* const action : gridActions_) action->setEnabled(widget_ != nullptr);
  if (!widget_) {
    setWindowTitle(tr("Tessera"));
    setWindowModified(false);
    return status_->showPlace({});
  }
  setWindowTitle(tr("%1[*] - Tessera").arg(fromUtf8(document_->shortName()).replace("[*]", "[*][*]")));
  setWindowModified(document_->isModified());
  const QLocale numbers;
  const std::int32_t rows = grid()->parts().link.rowCount();
  const int row = widget_->rowPosition();
  XString column;
  grid()->get_ColumnPosition(column);
  QString place = tr("%1 rows").arg(numbers.toString(rows));
  if (rows > 0 && row > 0) place = tr("Row %1 of %2").arg(numbers.toString(row), numbers.toString(rows));
  if (!column.empty()) place += tr("   %1").arg(commands().columnName(column));
  status_->showPlace(place);
}

bool ViewerWindow::saveAll() {
  if (!commands().finishEdit()) {
    status_->say(tr("Not saved: the cell that is being edited stays open."));
    return false;
  }
  if (!mayReplaceFile()) return false;
  std::optional<LoadError> fault;
  commands().keepColumn([&] {
    const WaitCursor wait;
    fault = document_->save();
  });
  noteChange();
  if (!fault) return true;
  tellFault(this, tr("Not saved"), fromUtf8(fault->message()));
  return false;
}

bool ViewerWindow::mayReplaceFile() {
  const QString file = fromUtf8(document_->staleFile());
  if (file.isEmpty()) return true;
  const QString text =
      tr("%1 was changed by another program since it was read. Saving takes these changes away.").arg(file);
  enum Answer { Overwrite, Cancel };
  const int answer = ask(
      this, tr("Changed outside"), text,
      {{tr("&Overwrite"), QMessageBox::DestructiveRole}, {tr("&Cancel"), QMessageBox::RejectRole}}, Cancel);
  return answer == Overwrite;
}

bool ViewerWindow::mayDropChanges() {
  if (!widget_) return true;
  const bool ended = commands().finishEdit();
  if (tellRefusal()) return false;
  if (ended && !document_->isModified()) return true;
  enum Answer { Save, Discard, Cancel };
  const int answer = ask(this, tr("Unsaved changes"),
                         tr("%1 has changes that are not saved.").arg(fromUtf8(document_->shortName())),
                         {{tr("&Save"), QMessageBox::AcceptRole},
                          {tr("&Discard"), QMessageBox::DestructiveRole},
                          {tr("&Cancel"), QMessageBox::RejectRole}});
  return answer == Save ? saveAll() : answer == Discard;
}

void ViewerWindow::closeEvent(QCloseEvent* event) {
  if (isReading_ || !mayDropChanges()) return event->ignore();
  event->accept();
}

}  // namespace tessera
