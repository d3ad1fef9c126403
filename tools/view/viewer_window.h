// The window of the viewer.

#pragma once

#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include <tessera/tessera_widget.h>

#include "tools/view/data_watch.h"
#include "tools/view/find_bar.h"
#include "tools/view/grid_commands.h"
#include "tools/view/status_line.h"
#include "tools/view/view_document.h"

namespace tessera {

// One document at a time, or none. Commands that need one are off without it.
class ViewerWindow : public QMainWindow {
  Q_OBJECT

 public:
  ViewerWindow();
  ~ViewerWindow() override;

  // What is open gives way to the document of this name; nothing changes when that cannot be read. Shows how
  // far the reading is. The fault is nothing when the person stopped the reading.
  struct OpenResult {
    bool opened = false;
    std::optional<LoadError> fault = std::nullopt;
  };
  OpenResult open(const std::string& name);

  // For who reports what the window shows; null without a document.
  Tessera* grid();
  const StatusLine& statusLine() const { return *status_; }
  const FindBar& findBar() const { return *find_; }

  enum class MenuId { File, Edit, Rows, Help };
  struct ActionRow {
    MenuId menu;
    const char* text;
    const char* keys;  // empty: none; "=KEYS": the grid takes these itself
    const char* hint;  // in the tool bar; empty: not there
    bool needsGrid;
    void (ViewerWindow::*run)();
  };
  static std::span<const ActionRow> actionRows();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  class InputStop;

  // What was typed into a cell when its editor closed.
  struct Typed {
    QString before;
    QString text;
    DataWatch::Counts counts;  // before that
  };

  void makeActions();
  void addAction(const ActionRow& row, QMenu& menu, QToolBar& bar);

  void chooseFile();
  void reload();
  void save();
  void savePicture();
  void editCell();
  void copy();
  void paste();
  void openFind();
  void findNext();
  void findPrevious();
  void insertRow();
  void appendRow();
  void deleteRows();
  void sortUp();
  void sortDown();
  void sortAsLoaded();
  void fitColumns();
  void showKeys();

  bool mayTakeShortcut(const QKeyEvent& event);
  void noteTyped(const QString& before);
  // True: the last edit left its cell as it was, and the person was told.
  bool tellRefusal();

  void openAsked(const std::string& name);
  void showDocument(std::unique_ptr<ViewDocument> document);
  void fillPage();
  void listenToGrid();
  void fitToForm();
  Size wantedClient();
  void takeSize(QSize size);
  void dropDocument();
  GridCommands commands();
  // False when what is open must stay: a save failed, or the person changed their mind.
  bool mayDropChanges();
  bool saveAll();
  bool mayReplaceFile();

  // Once the present input is dealt with.
  void noteChange() { update_.start(); }
  void showState();

  std::unique_ptr<ViewDocument> document_;
  std::unique_ptr<DataWatch> watch_;
  TesseraWidget* widget_ = nullptr;  // null without a document; a child of the central widget
  QWidget* empty_;                   // in its place
  FindBar* find_;
  StatusLine* status_;
  QToolBar* tools_ = nullptr;
  QList<QAction*> gridActions_;
  QTimer update_;
  std::optional<Typed> typed_;  // until the present input is dealt with
  bool isReading_ = false;
};

}  // namespace tessera
