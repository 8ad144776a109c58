#include "ui/frmNamedCombo.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QLineEdit>

namespace swui {

namespace {

// Its children are those of any combo box: the list first, then the text box of an editable one.
class NamedComboAccessible : public QAccessibleWidget {
 public:
  explicit NamedComboAccessible(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox) {}
  QComboBox* box() const { return static_cast<QComboBox*>(widget()); }
  QString text(QAccessible::Text t) const override {
    if (t == QAccessible::Value) return box()->currentText();
    return QAccessibleWidget::text(t);
  }
  int childCount() const override { return box()->lineEdit() != nullptr ? 2 : 1; }
  QAccessibleInterface* child(int index) const override {
    if (index == 0) return QAccessible::queryAccessibleInterface(box()->view());
    return index == 1 ? QAccessible::queryAccessibleInterface(box()->lineEdit()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* iface) const override {
    for (int i = 0; i < childCount(); ++i)
      if (child(i) == iface) return i;
    return -1;
  }
};

QAccessibleInterface* Factory(const QString& className, QObject* object) {
  if (className != QLatin1String("swui::NamedCombo") || object == nullptr) return nullptr;
  return new NamedComboAccessible(static_cast<NamedCombo*>(object));
}

}  // namespace

NamedCombo::NamedCombo(QWidget* parent) : QComboBox(parent) {
  static const bool installed = (QAccessible::installFactory(Factory), true);
  (void)installed;
}

void NamedCombo::SetName(const QString& name) {
  setAccessibleName(name);
  if (lineEdit() != nullptr) lineEdit()->setAccessibleName(name);
  view()->setAccessibleName(name);
}

}  // namespace swui
