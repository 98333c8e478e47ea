#include "platform/qt/edit_menu.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <memory>

namespace tessarine {

namespace {

struct EditItem {
  const char* text;
  QKeySequence::StandardKey key;
  void (*apply)(QLineEdit&);
  bool (*applies)(const QLineEdit&);
  bool opensGroup = false;
};

constexpr EditItem items[] = {
    {QT_TRANSLATE_NOOP("EditMenu", "&Undo"), QKeySequence::Undo,
     [](QLineEdit& field) { field.undo(); },
     [](const QLineEdit& field) { return field.isUndoAvailable(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "&Redo"), QKeySequence::Redo,
     [](QLineEdit& field) { field.redo(); },
     [](const QLineEdit& field) { return field.isRedoAvailable(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "Cu&t"), QKeySequence::Cut,
     [](QLineEdit& field) { field.cut(); },
     [](const QLineEdit& field) { return field.hasSelectedText(); }, true},
    {QT_TRANSLATE_NOOP("EditMenu", "&Copy"), QKeySequence::Copy,
     [](QLineEdit& field) { field.copy(); },
     [](const QLineEdit& field) { return field.hasSelectedText(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "&Paste"), QKeySequence::Paste,
     [](QLineEdit& field) { field.paste(); },
     [](const QLineEdit&) { return !QApplication::clipboard()->text().isEmpty(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "&Delete"), QKeySequence::Delete,
     [](QLineEdit& field) { field.del(); },
     [](const QLineEdit& field) { return field.hasSelectedText(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "Select &All"), QKeySequence::SelectAll,
     [](QLineEdit& field) { field.selectAll(); },
     [](const QLineEdit& field) { return !field.text().isEmpty(); }, true},
};

}  // namespace

void addEditMenu(QMenuBar& menus) {
  QMenu* menu = menus.addMenu(QCoreApplication::translate("EditMenu", "&Edit"));
  // Remembered, since the bar has the focus itself while keys walk through its menus.
  const auto focused = std::make_shared<QPointer<QLineEdit>>();
  QObject::connect(qApp, &QApplication::focusChanged, menu,
                   [&menus, focused](QWidget*, QWidget* now) {
                     if (now != &menus) *focused = qobject_cast<QLineEdit*>(now);
                   });
  for (const EditItem& item : items) {
    if (item.opensGroup) menu->addSeparator();
    QAction* action = menu->addAction(QCoreApplication::translate("EditMenu", item.text));
    action->setShortcut(item.key);
    // Told in the menu only: the field itself answers to the key, and keys typed while no field has
    // the focus are left alone.
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, menu, [&item, focused] {
      if (QLineEdit* field = *focused) item.apply(*field);
    });
    QObject::connect(menu, &QMenu::aboutToShow, action, [action, &item, focused] {
      const QLineEdit* field = *focused;
      action->setEnabled(field != nullptr && item.applies(*field));
    });
  }
}

}  // namespace tessarine
