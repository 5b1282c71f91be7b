#pragma once

#include <vxsettings/dbparamwidget.h>

#include <QApplication>
#include <QCheckBox>
#include <QMetaMethod>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QWheelEvent>

#include <utility>

/// @p value with its type, for instance "uint 3": QVariant itself takes 3, 3u and "3" for equal.
inline QString described(const QVariant &value)
{
    if (!value.isValid())
        return QStringLiteral("invalid");
    return QStringLiteral("%1 %2").arg(QString::fromLatin1(value.typeName()), value.toString());
}

/// What an editor says, in order: "key: type value" for paramChanged(), "commit" for commitData().
class HeardSignals
{
public:
    explicit HeardSignals(const DBParamWidget &editor)
    {
        QObject::connect(
            &editor, &DBParamWidget::paramChanged, &m_context,
            [this](const QString &key, const QVariant &value) { m_heard << key + ": " + described(value); });
        QObject::connect(&editor, &DBParamWidget::commitData, &m_context, [this] { m_heard << "commit"; });
    }
    Q_DISABLE_COPY(HeardSignals)

    /// What was said since the last call.
    QStringList take() { return std::exchange(m_heard, {}); }

private:
    QObject m_context;
    QStringList m_heard;
};

/// An editor that lets its stored value be seen.
template <typename Editor>
class Bared : public Editor
{
public:
    using Editor::Editor;
    using Editor::storedValue;
};

/// What may be wrong with the slot of an editor.
enum class BrokenSlot { Empty, Renamed, Foreign };
Q_DECLARE_METATYPE(BrokenSlot)

inline void addBrokenSlotRows()
{
    QTest::addColumn<BrokenSlot>("brokenSlot");
    QTest::newRow("no input widget") << BrokenSlot::Empty;
    QTest::newRow("renamed input widget") << BrokenSlot::Renamed;
    QTest::newRow("input widget of another class") << BrokenSlot::Foreign;
}

/// Spoils the slot and returns what is in it now, if anything. A foreign input widget is a Stranger.
template <typename Stranger>
QWidget *breakSlot(DBParamWidget &editor, BrokenSlot brokenSlot)
{
    QWidget *input = editor.centralWidget();
    if (brokenSlot == BrokenSlot::Renamed) {
        input->setObjectName("renamed");
        return input;
    }
    delete input;
    if (brokenSlot == BrokenSlot::Empty)
        return nullptr;
    auto *stranger = new Stranger;
    editor.setCentralWidget(stranger);
    return stranger;
}

/// The editor's class adds its name to the meta-object of the frame, and nothing else.
inline void compareMetaObject(const QMetaObject &meta, const char *className)
{
    QCOMPARE(meta.className(), className);
    QCOMPARE(meta.superClass(), &DBParamWidget::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(meta.classInfoCount(), meta.classInfoOffset());
}

/// Clicks where the box can be hit, which its centre need not be.
inline void click(QCheckBox *box)
{
    QStyleOptionButton option;
    option.initFrom(box);
    const QRect indicator = box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, indicator.center());
}

/// One notch down, as the window system delivers it: only a spontaneous event goes on to the widgets around.
inline void turnWheelDown(QWidget *widget)
{
    const QPointF place = widget->rect().center();
    QWheelEvent event(place, widget->mapToGlobal(place.toPoint()), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event); // sendEvent() would take the mark off again
}
