#include <vxsettings/dbparamwidget.h>

#include "catalogue.h"
#include "editormark.h"
#include "problemlabel.h"
#include "ui_dbparamwidget.h"

#include <vxsettings/dbsettingshelper.h>

#include <QEvent>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <array>

namespace {

constexpr int spareRow = 3; // below those of the form
constexpr int problemSpacing = 2;
constexpr char parameterProperty[] = "parameter";

QString centralWidgetName()
{
    return QStringLiteral("DBParamWidget_centralWidget");
}

/// Like QWidget::setVisible(), but does not polish a label that is not on the screen yet: its frame still has to be
/// moved into the page, and whatever is polished before is polished again after.
void setLabelVisible(QLabel *label, bool visible)
{
    if (!visible || label->parentWidget()->isVisible()) {
        label->setVisible(visible);
        return;
    }
    label->setAttribute(Qt::WA_WState_ExplicitShowHide);
    label->setAttribute(Qt::WA_WState_Hidden, false);
    label->updateGeometry();
}

/// In the order in which they get their texts.
std::array<QLabel *, 4> captionsOf(const Ui_DBParamWidget &form)
{
    return {form.leftLabel, form.topLabel, form.rightLabel, form.bottomLabel};
}

QString plainText(const QString &text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}
} // namespace

DBParamWidget::DBParamWidget(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui_DBParamWidget>())
{
    // The form connects no slots by name: it has none, and looking for them was a tenth of the cost of a page.
    m_ui->setupUi(this);
    for (CaptionLabel *label : {m_ui->topLabel, m_ui->bottomLabel})
        label->setEditor(m_ui->centralWidget, CaptionLabel::Place::AboveOrBelow);
    for (CaptionLabel *label : {m_ui->leftLabel, m_ui->rightLabel})
        label->setEditor(m_ui->centralWidget, CaptionLabel::Place::Beside);
    setLabelPosition(LabelPosition::Left);
}

DBParamWidget::~DBParamWidget() = default;

void DBParamWidget::setName(const QString &name)
{
    linkCaptions(name); // before the text, because a label measures its text anew for it
    for (QLabel *label : captionsOf(*m_ui))
        label->setText(name);
    describeInput();
}

void DBParamWidget::setValue(const QVariant &value)
{
    m_storedValue = value;
}

QVariant DBParamWidget::value() const
{
    return m_storedValue;
}

void DBParamWidget::setParamValues(const std::map<unsigned int, QString> &) {}

void DBParamWidget::setParamRange(const std::pair<int, int> &) {}

bool DBParamWidget::canChangeLabelPosition() const
{
    return true;
}

void DBParamWidget::setSpecialValue(const QString &) {}

void DBParamWidget::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
}

void DBParamWidget::setEnabled(bool enabled)
{
    m_enabled = enabled;
}

void DBParamWidget::setDefaultValue()
{
    // A copy: the setter writes to the very member, and what it sets off may write to it again.
    setValue(storedValue());
}

void DBParamWidget::setKey(const QString &key)
{
    m_key = key;
}

QString DBParamWidget::key() const
{
    return m_key;
}

bool DBParamWidget::isReadOnly() const
{
    return m_readOnly;
}

bool DBParamWidget::isEnabled() const
{
    return m_enabled;
}

QVariant DBParamWidget::storedValue() const
{
    return m_storedValue;
}

void DBParamWidget::setCentralWidget(QWidget *editor)
{
    QWidget *slot = m_ui->centralWidget;
    editor->setParent(slot);
    editor->setObjectName(centralWidgetName());
    if (!slot->layout()) {
        auto *layout = new QVBoxLayout(slot);
        layout->setContentsMargins(0, 0, 0, 0);
    }
    slot->layout()->addWidget(editor);
}

QWidget *DBParamWidget::centralWidget() const
{
    return findChild<QWidget *>(centralWidgetName());
}

void DBParamWidget::setLabelPosition(LabelPosition position)
{
    if (position < LabelPosition::None || position > LabelPosition::Bottom)
        return;
    setLabelVisible(m_ui->leftLabel, position == LabelPosition::Left);
    setLabelVisible(m_ui->topLabel, position == LabelPosition::Top);
    setLabelVisible(m_ui->rightLabel, position == LabelPosition::Right);
    setLabelVisible(m_ui->bottomLabel, position == LabelPosition::Bottom);
    // Captions of different heights below the input widgets of a row must not push those out of line.
    const int isTopAligned = position == LabelPosition::Bottom;
    if (m_ui->gridLayout->rowStretch(spareRow) != isTopAligned)
        m_ui->gridLayout->setRowStretch(spareRow, isTopAligned);
    describeInput();
}

void DBParamWidget::setMark(Mark mark, const QString &words)
{
    if (!m_mark && mark == Mark::None)
        return;
    if (!m_mark)
        m_mark = new EditorMark(this);
    m_mark->setMark(mark, mark == Mark::None ? QString() : words);
    placeMark();
    m_mark->setVisible(mark != Mark::None);
    describeInput();
}

DBParamWidget::Mark DBParamWidget::mark() const
{
    return m_mark ? m_mark->mark() : Mark::None;
}

void DBParamWidget::setProblem(const QString &text)
{
    if (text == problem())
        return;
    if (!m_problem)
        m_problem = new ProblemLabel(this);
    m_problem->setText(text);
    m_problem->setVisible(!text.isEmpty());
    placeProblem();
    describeInput();
}

QString DBParamWidget::problem() const
{
    return m_problem ? m_problem->text() : QString();
}

void DBParamWidget::retranslate()
{
    const catalogue::Parameter *parameter = catalogue::findParameter(m_key);
    if (!parameter)
        return;
    if (parameter->caption)
        setName(DBSettingsHelper::paramName(m_key));
    if (parameter->specialValue)
        setSpecialValue(DBSettingsHelper::paramSpecialValue(m_key));
    if (parameter->toolTip)
        setToolTip(DBSettingsHelper::toolTip(m_key));
}

bool DBParamWidget::event(QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange &&
        static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == parameterProperty)
        followParameterProperty();
    const bool changesLayout = event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize;
    const bool changesDescription = event->type() == QEvent::Show || event->type() == QEvent::ToolTipChange;
    if (!changesLayout && !changesDescription)
        return QWidget::event(event);

    const bool isHandled = QWidget::event(event);
    if (isVisible()) {
        placeMark();
        placeProblem();
        if (changesDescription)
            describeInput();
    }
    return isHandled;
}

void DBParamWidget::followParameterProperty()
{
    const QString key = property(parameterProperty).toString();
    const catalogue::Parameter *parameter = catalogue::findParameter(key);
    if (!parameter)
        return;
    setKey(key);
    if (parameter->choices.count > 0)
        setParamValues(DBSettingsHelper::paramValues(key));
    if (parameter->type == DBSettingsType::SpinBox)
        setParamRange(parameter->range);
    retranslate();
}

void DBParamWidget::placeMark()
{
    if (!m_mark)
        return;
    const int margin = m_ui->gridLayout->contentsMargins().left();
    const int middle = m_ui->centralWidget->geometry().center().y();
    m_mark->move((margin - EditorMark::extent) / 2, middle - EditorMark::extent / 2);
}

void DBParamWidget::placeProblem()
{
    if (!m_problem)
        return;
    // In the margin below the grid: a cell across its columns would bring their spacings along and make the row wider.
    QMargins margins = m_ui->gridLayout->contentsMargins();
    const int width = this->width() - margins.left();
    const int height = m_problem->isHidden() ? 0 : m_problem->heightForWidth(width);
    margins.setBottom(height > 0 ? problemSpacing + height : 0);
    if (margins != m_ui->gridLayout->contentsMargins())
        m_ui->gridLayout->setContentsMargins(margins);

    QRect content = m_ui->centralWidget->geometry();
    for (const QLabel *label : captionsOf(*m_ui)) {
        if (!label->isHidden())
            content |= label->geometry();
    }
    m_problem->setGeometry(margins.left(), content.bottom() + 1 + problemSpacing, width, height);
}

void DBParamWidget::describeInput()
{
    // What is on no screen is described when it gets there: that is no cost of building a page.
    QWidget *input = isVisible() ? centralWidget() : nullptr;
    if (!input)
        return;

    setFocusProxy(input);
    // NOLINTNEXTLINE(clang-analyzer-optin.cplusplus.VirtualCall): nothing is visible while it is constructed
    if (canChangeLabelPosition())
        input->setAccessibleName(m_ui->leftLabel->text());
    input->setAccessibleDescription(description());
    linkCaptions(m_ui->leftLabel->text());
}

void DBParamWidget::linkCaptions(const QString &name)
{
    QWidget *input = name.contains(QLatin1Char('&')) ? nullptr : centralWidget();
    for (QLabel *label : captionsOf(*m_ui)) {
        QWidget *buddy = label->isHidden() ? nullptr : input;
        if (label->buddy() != buddy)
            label->setBuddy(buddy);
    }
}

QString DBParamWidget::description() const
{
    QStringList parts{plainText(toolTip()), m_mark ? m_mark->words() : QString(), problem()};
    parts.removeAll(QString());
    return parts.join(QLatin1Char('\n'));
}
