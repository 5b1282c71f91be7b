#include "parametermenu.h"

#include "changestampwords.h"
#include "disabledhints.h"

#include <host/databaselocation.h>
#include <host/settingssession.h>
#include <host/settingwords.h>

#include <vxsettings/dbparamwidget.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace {

/// The menu that the editor has by itself; empty if it has none. With @p undoActions, undo and redo are those.
QMenu *standardMenu(const DBParamWidget &editor, const QList<QAction *> &undoActions)
{
    QWidget *input = editor.centralWidget();
    auto *line = qobject_cast<QLineEdit *>(input);
    if (!line)
        line = input->findChild<QLineEdit *>(); // of a spin box
    if (!line || !input->isEnabled())
        return new QMenu(input->window());

    QMenu *menu = line->createStandardContextMenu();
    if (!undoActions.isEmpty() && !line->isReadOnly()) {
        // The first two of a line that can be edited are its own.
        const QList<QAction *> own = menu->actions().mid(0, undoActions.count());
        menu->insertActions(own.first(), undoActions);
        qDeleteAll(own);
    }
    menu->addSeparator();
    return menu;
}

/// One word for a shell, whatever is in it.
QString quoted(QString word)
{
    return QLatin1Char('\'') + word.replace(QLatin1Char('\''), QLatin1String("'\\''")) + QLatin1Char('\'');
}

void copy(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}
} // namespace

ParameterMenu::ParameterMenu(SettingsSession &session, const DatabaseLocation &location, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_database(location.name())
{
    connect(&m_session, &SettingsSession::pageOpened, this, &ParameterMenu::addPage);
}

void ParameterMenu::setUndoActions(QAction *undo, QAction *redo)
{
    m_undoActions = {undo, redo};
}

bool ParameterMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ContextMenu || !m_addresses.contains(watched))
        return QObject::eventFilter(watched, event);
    createMenu(m_addresses.value(watched))->popup(static_cast<QContextMenuEvent *>(event)->globalPos());
    event->accept();
    return true;
}

void ParameterMenu::addPage()
{
    m_addresses.clear();
    for (const SettingAddress &address : SettingAddress::all()) {
        DBParamWidget *editor = m_session.editor(address);
        if (!editor)
            continue;
        for (QWidget *widget : {static_cast<QWidget *>(editor), editor->centralWidget()}) {
            widget->removeEventFilter(this);
            widget->installEventFilter(this);
            m_addresses.insert(widget, address);
        }
    }
}

QMenu *ParameterMenu::createMenu(const SettingAddress &address)
{
    QMenu *menu = standardMenu(*m_session.editor(address), m_undoActions);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addChanges(*menu, address);
    addSwitch(*menu, address);
    // Not from within the menu, which goes meanwhile.
    menu->addAction(tr("Почему такое значение…"), this,
                    [=] { QTimer::singleShot(0, this, [=] { explain(address); }); });
    menu->addAction(tr("История параметра…"), this,
                    [=] { QTimer::singleShot(0, this, [=] { Q_EMIT historyWanted(address); }); });
    menu->addSeparator();
    addCopies(*menu, address);
    return menu;
}

void ParameterMenu::addChanges(QMenu &menu, const SettingAddress &address)
{
    QAction *revert = menu.addAction(tr("Вернуть сохранённое значение"), this, [=] { m_session.revert(address); });
    revert->setEnabled(m_session.isChanged(address));
    addRepair(menu, address);
}

void ParameterMenu::addRepair(QMenu &menu, const SettingAddress &address)
{
    const QString &key = address.key;
    const auto wrong = finding(address);
    QAction *repair = nullptr;
    // Into a text that cannot be read no single value can be put.
    if (m_session.isUnreadable(key))
        repair = menu.addAction(tr("Исправить запись «%1»…").arg(SettingAddress{key}.caption()), this,
                                [=] { QTimer::singleShot(0, this, [=] { Q_EMIT repairWanted(key); }); });
    else if (wrong && !wrong->repair.isNull())
        repair = menu.addAction(tr("Исправить сохранённое: %1").arg(SettingWords::value(address, wrong->repair)), this,
                                [=] { m_session.replaceStored(address, wrong->repair); });
    if (repair)
        repair->setEnabled(m_session.mayEdit(SettingAddress{key}.group()));
}

void ParameterMenu::addSwitch(QMenu &menu, const SettingAddress &address)
{
    const auto parent = DisabledHints::switchOf(address);
    if (!parent || m_session.editor(address)->isEnabled())
        return;
    menu.addAction(tr("Перейти к параметру «%1»").arg(parent->caption()), this,
                   [=] { Q_EMIT parameterWanted(*parent); });
}

void ParameterMenu::addCopies(QMenu &menu, const SettingAddress &address)
{
    menu.addAction(tr("Скопировать ключ"), this, [=] { copy(address.text()); });
    menu.addAction(tr("Скопировать команду vxsettingsctl"), this, [=] { copy(command(address)); });
}

void ParameterMenu::explain(const SettingAddress &address) const
{
    const DBParamWidget *editor = m_session.editor(address);
    if (!editor)
        return;
    const QString stored = m_session.storedText(address);
    const bool isSecret = SettingWords::isSecret(address.parameter());
    QStringList lines;
    lines << tr("Ключ: %1").arg(address.text());
    // As it is written, not as the catalogue understands it.
    lines << tr("Сохранено: %1").arg(SettingWords::value(isSecret ? address : SettingAddress(), stored));
    lines << tr("Показано: %1").arg(SettingWords::value(address, m_session.shownText(address)));
    if (const auto wrong = finding(address))
        lines << wrong->words;
    lines << tr("Последнее изменение: %1").arg(ChangeStampWords::of(m_session.stamp(address.key)));

    QMessageBox box(QMessageBox::Information, tr("Почему такое значение"), address.caption(), QMessageBox::NoButton,
                    editor->window());
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(lines.join(QLatin1Char('\n')));
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}

std::optional<SettingFinding> ParameterMenu::finding(const SettingAddress &address) const
{
    for (const SettingFinding &finding : m_session.findings()) {
        if (finding.address == address)
            return finding;
    }
    return {};
}

QString ParameterMenu::command(const SettingAddress &address) const
{
    const QString program = QStringLiteral("vxsettingsctl --database %1 set ").arg(quoted(m_database));
    if (SettingWords::isSecret(address.parameter()))
        return program + QStringLiteral("--stdin ") + quoted(address.text());
    return program + quoted(address.text() + QLatin1Char('=') + m_session.shownText(address));
}
