#include <vxwidgets/vxtreeviewdelegate.h>

#include "messages.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStandardItemModel>
#include <QTest>
#include <QToolTip>
#include <QTreeView>

class TestVXTreeViewDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void rowsHaveAir();
    void rowHeightDoesNotDependOnTheName_data();
    void rowHeightDoesNotDependOnTheName();
    void displayText_data();
    void displayText();
    void iconHasTheColorOfTheText_data();
    void iconHasTheColorOfTheText();
    void missingIconKeepsItsPlace();
    void otherDecorationsKeepTheirColors();
    void unselectableRowIsGrey_data();
    void unselectableRowIsGrey();
    void focusFrameOnlyWithoutSelection();
    void cutOffNameHasAToolTip_data();
    void cutOffNameHasAToolTip();
};

namespace {

/// The delegate with its style option in reach.
class OpenDelegate : public VXTreeViewDelegate
{
public:
    QStyleOptionViewItem styleOption(const QTreeView &view, const QModelIndex &index, QStyle::State state) const
    {
        QStyleOptionViewItem option;
        option.initFrom(&view);
        option.font = view.font();
        option.decorationSize = {16, 16};
        option.state = QStyle::State_Enabled | QStyle::State_Active | state;
        initStyleOption(&option, index);
        return option;
    }
};

/// One row in a tree view whose colours tell what they are used for.
struct Row
{
    explicit Row(const QString &name)
        : item(new QStandardItem(name))
    {
        model.appendRow(item);
        QPalette palette;
        palette.setColor(QPalette::Text, Qt::darkGreen);
        palette.setColor(QPalette::HighlightedText, Qt::yellow);
        palette.setColor(QPalette::Inactive, QPalette::Text, Qt::darkCyan);
        palette.setColor(QPalette::Disabled, QPalette::Text, Qt::lightGray);
        palette.setColor(QPalette::Highlight, Qt::blue);
        palette.setColor(QPalette::Base, Qt::white);
        view.setPalette(palette);
        view.setHeaderHidden(true);
        view.setRootIsDecorated(false);
        view.setItemDelegate(&delegate);
        view.setModel(&model);
        view.resize(300, 60);
    }
    QModelIndex index() const { return item->index(); }
    QStyleOptionViewItem option(QStyle::State state = {}) const { return delegate.styleOption(view, index(), state); }
    QImage painted()
    {
        view.show();
        return QTest::qWaitForWindowExposed(&view) ? view.viewport()->grab().toImage() : QImage();
    }

    QStandardItemModel model;
    QStandardItem *item; // of the model
    OpenDelegate delegate;
    QTreeView view;
};

/// A red disc, as a theme might have it.
QIcon redIcon()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setBrush(Qt::red);
    painter.drawEllipse(2, 2, 12, 12);
    return pixmap;
}

QColor middleColor(const QIcon &icon, QIcon::Mode mode)
{
    return icon.pixmap(QSize(16, 16), mode).toImage().pixelColor(8, 8);
}

bool contains(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}
} // namespace

void TestVXTreeViewDelegate::rowsHaveAir()
{
    const Row row("Name");
    const int height = row.delegate.sizeHint(row.option(), row.index()).height();
    QVERIFY(height >= row.view.fontMetrics().height() + 6);
    QVERIFY(height <= row.view.fontMetrics().height() * 2);
}

void TestVXTreeViewDelegate::rowHeightDoesNotDependOnTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "";
    QTest::newRow("lines") << "one\ntwo\u2028three";
    QTest::newRow("markup") << "<h1>one</h1><br>two";
    QTest::newRow("a megabyte") << QString(1 << 20, 'W');
}

void TestVXTreeViewDelegate::rowHeightDoesNotDependOnTheName()
{
    QFETCH(QString, name);
    const Row plain("Name");
    const Row row(name);
    const QSize size = row.delegate.sizeHint(row.option(), row.index());
    QCOMPARE(size.height(), plain.delegate.sizeHint(plain.option(), plain.index()).height());
    QVERIFY(size.width() < 20000);
}

void TestVXTreeViewDelegate::displayText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("name") << QVariant("Отдел № 1") << "Отдел № 1";
    QTest::newRow("blanks stay") << QVariant(" a  b ") << " a  b ";
    QTest::newRow("lines") << QVariant("a\nb\r\nc\td") << "a b  c d";
    QTest::newRow("separators") << QVariant("a\u2028b\u2029c") << "a b c";
    QTest::newRow("markup") << QVariant("<b>a</b> & b") << "<b>a</b> & b";
    QTest::newRow("long") << QVariant(QString(1 << 20, 'a')) << QString(500, 'a');
    QTest::newRow("number") << QVariant(42) << "42";
    QTest::newRow("nothing") << QVariant() << "";
}

void TestVXTreeViewDelegate::displayText()
{
    QFETCH(QVariant, value);
    QTEST(VXTreeViewDelegate().displayText(value, QLocale::c()), "text");
}

void TestVXTreeViewDelegate::iconHasTheColorOfTheText_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("withoutState");
    QTest::addColumn<QColor>("color");
    QTest::newRow("plain") << 0 << 0 << QColor(Qt::darkGreen);
    QTest::newRow("selected") << int(QStyle::State_Selected) << 0 << QColor(Qt::yellow);
    QTest::newRow("in a window that is not active") << 0 << int(QStyle::State_Active) << QColor(Qt::darkCyan);
    QTest::newRow("disabled") << 0 << int(QStyle::State_Enabled) << QColor(Qt::lightGray);
}

void TestVXTreeViewDelegate::iconHasTheColorOfTheText()
{
    QFETCH(int, state);
    QFETCH(int, withoutState);
    QFETCH(QColor, color);
    /// Leaves a state out.
    class Without : public OpenDelegate
    {
    public:
        QStyle::State left;

    protected:
        void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
        {
            option->state &= ~left;
            OpenDelegate::initStyleOption(option, index);
        }
    } delegate;
    delegate.left = QStyle::State(withoutState);
    const Row row("Name");
    row.item->setIcon(redIcon());
    const QStyleOptionViewItem option = delegate.styleOption(row.view, row.index(), QStyle::State(state));
    // Whatever the style makes of the state, it finds the colour as it is.
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected, QIcon::Disabled})
        QCOMPARE(middleColor(option.icon, mode), color);
}

void TestVXTreeViewDelegate::missingIconKeepsItsPlace()
{
    const Row with("Name");
    with.item->setIcon(redIcon());
    const Row without("Name");
    without.item->setData(QIcon(), Qt::DecorationRole);
    const Row noIcon("Name");
    QCOMPARE(without.option().decorationSize, QSize(16, 16));
    QCOMPARE(without.delegate.sizeHint(without.option(), without.index()),
             with.delegate.sizeHint(with.option(), with.index()));
    QVERIFY(noIcon.delegate.sizeHint(noIcon.option(), noIcon.index()).width() <
            with.delegate.sizeHint(with.option(), with.index()).width());
}

void TestVXTreeViewDelegate::otherDecorationsKeepTheirColors()
{
    const Row row("Name");
    row.item->setData(redIcon().pixmap(16), Qt::DecorationRole);
    QCOMPARE(middleColor(row.option().icon, QIcon::Normal), QColor(Qt::red));
}

void TestVXTreeViewDelegate::unselectableRowIsGrey_data()
{
    QTest::addColumn<bool>("selectable");
    QTest::addColumn<QColor>("color");
    QTest::newRow("selectable") << true << QColor(Qt::darkGreen);
    QTest::newRow("unselectable") << false << QColor(Qt::lightGray);
}

void TestVXTreeViewDelegate::unselectableRowIsGrey()
{
    QFETCH(bool, selectable);
    QFETCH(QColor, color);
    Row row("HHHHHHHH");
    row.item->setFlags(selectable ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::ItemIsEnabled);
    row.item->setIcon(redIcon());
    QCOMPARE(middleColor(row.option().icon, QIcon::Normal), color);
    QCOMPARE(row.option().palette.color(QPalette::Active, QPalette::Text), color);
    row.view.activateWindow();
    const QImage painted = row.painted();
    QVERIFY(contains(painted, color) || contains(painted, selectable ? QColor(Qt::darkCyan) : color));
    QVERIFY(!contains(painted, Qt::red));
}

void TestVXTreeViewDelegate::focusFrameOnlyWithoutSelection()
{
    const Row row("Name");
    const auto hasFocus = [&row](QStyle::State state) {
        return bool(row.option(state).state & QStyle::State_HasFocus);
    };
    QVERIFY(hasFocus(QStyle::State_HasFocus));
    QVERIFY(!hasFocus(QStyle::State_HasFocus | QStyle::State_Selected));
    QVERIFY(!hasFocus({}));
}

void TestVXTreeViewDelegate::cutOffNameHasAToolTip_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("shown");
    const QString longName = "Name " + QString(100, 'x');
    QTest::newRow("short") << "Name"
                           << ""
                           << "";
    QTest::newRow("short, with a tool tip of its own") << "Name"
                                                       << "Own"
                                                       << "Own";
    QTest::newRow("long") << longName << ""
                          << "<span>" + longName + "</span>";
    QTest::newRow("long markup") << "<b>" + longName + "</b>"
                                 << ""
                                 << "<span>&lt;b&gt;" + longName + "&lt;/b&gt;</span>";
}

void TestVXTreeViewDelegate::cutOffNameHasAToolTip()
{
    QFETCH(QString, name);
    QFETCH(QString, toolTip);
    Row row(name);
    if (!toolTip.isEmpty())
        row.item->setToolTip(toolTip);
    row.view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&row.view));
    const QPoint pos = row.view.visualRect(row.index()).center();
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, pos, row.view.viewport()->mapToGlobal(pos));
    QApplication::sendEvent(row.view.viewport(), &event);
    QTEST(QToolTip::text(), "shown");
    QToolTip::hideText();
}

QTEST_MAIN(TestVXTreeViewDelegate)
#include "tst_vxtreeviewdelegate.moc"
