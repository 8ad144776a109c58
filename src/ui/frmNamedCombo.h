#pragma once
// A combo box as a screen reader should read it: named by what it is for ("Up/Left",
// "Control Profile"), its value the text it shows, and its drop-down list named the same,
// where a plain combo box would be named by its text and its list by nothing.
#include <QComboBox>

namespace swui {

class NamedCombo : public QComboBox {
  Q_OBJECT
 public:
  explicit NamedCombo(QWidget* parent);
  // Names the box, the text box inside an editable one, and the drop-down list.
  void SetName(const QString& name);
};

}  // namespace swui
