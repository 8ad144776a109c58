#include "ui/Accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace swui {

namespace {

// The announcer: a notification named by the last text it said.
class AnnouncerAccessible : public QAccessibleWidget {
 public:
  explicit AnnouncerAccessible(Announcer* a) : QAccessibleWidget(a, QAccessible::Notification) {}
  QString text(QAccessible::Text t) const override {
    if (t == QAccessible::Name) return static_cast<Announcer*>(widget())->Text();
    return QAccessibleWidget::text(t);
  }
};

QAccessibleInterface* Factory(const QString& className, QObject* object) {
  if (object == nullptr || !object->isWidgetType()) return nullptr;
  auto* w = static_cast<QWidget*>(object);
  if (className == QLatin1String("swui::Announcer")) return new AnnouncerAccessible(static_cast<Announcer*>(w));
  // The game's message box is read as an alert, its text with it.
  if (className == QLatin1String("swui::frmMsgBox")) return new QAccessibleWidget(w, QAccessible::AlertMessage);
  return nullptr;
}

}  // namespace

void InstallAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(Factory);
    return true;
  }();
  (void)installed;
}

Announcer::Announcer(QWidget* parent) : QWidget(parent) {
  InstallAccessibility();
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFixedSize(1, 1);
  hide();  // until it has something to say: an empty notification would be read too
}

void Announcer::Say(const QString& text) {
  text_ = text;
  // A notification is read as it appears: the first text appears with it, each later one anew.
  if (isHidden()) {
    show();
  } else if (QAccessible::isActive()) {
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
  }
}

}  // namespace swui
