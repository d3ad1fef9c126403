#include "tools/view/key_help.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "tools/view/key_table.h"

namespace tessera {

namespace {

QLabel* cell(std::string_view text, bool bold) {
  auto* const label = new QLabel(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  QFont font = label->font();
  font.setBold(bold);
  label->setFont(font);
  return label;
}

}  // namespace

KeyHelp::KeyHelp(QWidget* parent) : QDialog(parent) {
  setWindowTitle(QObject::tr("Keys"));
  auto* const column = new QVBoxLayout(this);
  auto* const table = new QGridLayout;
  table->setHorizontalSpacing(18);
  table->setVerticalSpacing(4);
  int row = 0;
  for (const KeyRow& key : keyTable) {
    table->addWidget(cell(key.keys, true), row, 0);
    table->addWidget(cell(key.action, false), row++, 1);
  }
  column->addLayout(table);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  column->addSpacing(8);
  column->addWidget(buttons);
}

}  // namespace tessera
