#include "handwrittenpage.h"

#include "pagedescription.h"

#include <vxsettings/dbkeys.h>

#include <localstorage/localstorage.h>
#include <vxstyles/vxiconhelper.h>
#include <vxwidgets/grantedproxymodel.h>
#include <vxwidgets/passwordedit.h>
#include <vxwidgets/scrollignoringspinbox.h>
#include <vxwidgets/vxobjectselector.h>
#include <vxwidgets/vxsettingsgroupwidget.h>
#include <vxwidgets/vxtreeviewdelegate.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QIcon>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTreeView>

#include <functional>
#include <vector>

using vantorix::OBJECT_PARAMETERS;

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("QObject", text);
}

/// What is asked of an editor after it was built.
struct Field
{
    QString key;
    std::function<QString()> text;
};

/// A group under construction: a page, or the members of a JSON object.
struct Section
{
    VXSettingsGroupWidget *frame = nullptr;
    QGridLayout *grid = nullptr;
    QWidget *content = nullptr;
    LabelPosition labels = LabelPosition::Right;
    int columns = 1;
    int cell = 0;
    QString jsonKey;
    QJsonObject json;
    std::vector<Field> fields;
};

/// The frame of one editor: four captions, of which one is shown, around the input widget.
struct Frame
{
    QWidget *widget;
    QVBoxLayout *slot;
};

QLabel *addLabel(QWidget *frame, QGridLayout *grid, const char *name, const QString &text, bool visible, int row,
                 int column)
{
    auto *label = new QLabel(frame);
    label->setObjectName(QLatin1String(name));
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    label->setWordWrap(true);
    label->setText(text);
    if (!visible)
        label->hide();
    grid->addWidget(label, row, column);
    return label;
}

Frame createFrame(const Section &section, const char *caption)
{
    auto *frame = new QWidget(section.content);
    auto *grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(10);
    grid->setContentsMargins(25, 0, 0, 0);
    const QString text = caption ? translated(caption) : QString();
    const LabelPosition position = caption ? section.labels : LabelPosition::None;
    addLabel(frame, grid, "topLabel", text, position == LabelPosition::Top, 0, 1);
    auto *slot = new QWidget(frame);
    slot->setObjectName(QStringLiteral("centralWidget"));
    slot->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    grid->addWidget(slot, 1, 1);
    addLabel(frame, grid, "leftLabel", text, position == LabelPosition::Left, 1, 0);
    addLabel(frame, grid, "rightLabel", text, position == LabelPosition::Right, 1, 2);
    addLabel(frame, grid, "bottomLabel", text, position == LabelPosition::Bottom, 2, 1);
    grid->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum), 1, 3);
    auto *layout = new QVBoxLayout(slot);
    layout->setContentsMargins(0, 0, 0, 0);
    return {frame, layout};
}
} // namespace

class HandwrittenPage::Writer : public QObject
{
public:
    explicit Writer(QWidget *parent)
        : m_parent(parent)
        , m_stored(vantorix::LocalStorage::instance()->dbSettings())
    {}
    ~Writer() override { delete m_page.frame; }

    void begin(const char *title, const char *icon, LabelPosition labels, int columns)
    {
        open(m_page, m_parent, labels, columns);
        m_page.frame->setShowHideButton(false);
        m_page.frame->setTitle(translated(title));
        m_page.frame->setIcon(VXIconHelper::pixmap(QIcon::fromTheme(QLatin1String(icon)), QSize(24, 24), Qt::black));
    }
    void end() { close(m_page); }

    void beginJson(const char *key, const char *title, int columns)
    {
        m_json = Section();
        open(m_json, m_page.content, LabelPosition::Right, columns);
        m_json.frame->setTitle(translated(title));
        m_json.frame->setShowHideButton(true);
        m_json.frame->setShowLineHorizontal(false);
        m_json.jsonKey = QLatin1String(key);
        m_json.json = QJsonDocument::fromJson(m_stored.value(m_json.jsonKey).toUtf8()).object();
        m_current = &m_json;
    }
    void endJson()
    {
        close(m_json);
        m_current = &m_page;
        const int row = (m_page.cell + m_page.columns - 1) / m_page.columns;
        m_page.grid->addWidget(m_json.frame, row, 0, 1, m_page.columns);
        m_page.cell = (row + 1) * m_page.columns;
    }

    void checkBox(const char *key, const char *caption)
    {
        const Frame frame = createFrame(*m_current, nullptr);
        auto *box = new QCheckBox(translated(caption), frame.widget);
        box->setChecked(value(key).toBool());
        QObject::connect(box, &QCheckBox::toggled, this, [this](bool) { changed(); });
        frame.slot->addWidget(box);
        place(frame, key, [box] { return QVariant(box->isChecked()).toString(); });
    }

    template <std::size_t N>
    void comboBox(const char *key, const char *caption, const pagedescription::Choice (&choices)[N])
    {
        const Frame frame = createFrame(*m_current, caption);
        auto *box = new QComboBox(frame.widget);
        for (const pagedescription::Choice &choice : choices)
            box->addItem(translated(choice.caption), choice.value);
        box->setCurrentIndex(qMax(0, box->findData(value(key).toUInt())));
        box->installEventFilter(this);
        QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int) { changed(); });
        frame.slot->addWidget(box);
        place(frame, key, [box] { return box->currentData().toString(); });
    }

    void lineEdit(const char *key, const char *caption, const char *toolTip = nullptr)
    {
        const Frame frame = createFrame(*m_current, caption);
        auto *edit = new QLineEdit(value(key).toString(), frame.widget);
        QObject::connect(edit, &QLineEdit::textEdited, this, [this](const QString &) { changed(); });
        frame.slot->addWidget(edit);
        if (toolTip)
            frame.widget->setToolTip(translated(toolTip));
        place(frame, key, [edit] { return edit->text(); });
    }

    void readOnly(const char *key, const char *caption)
    {
        lineEdit(key, caption);
        m_page.content->findChild<QLineEdit *>()->setReadOnly(true);
    }

    void password(const char *key, const char *caption)
    {
        const Frame frame = createFrame(*m_current, caption);
        auto *edit = new PasswordEdit(frame.widget);
        edit->setMinimumWidth(300);
        edit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        edit->setText(value(key).toString());
        QObject::connect(edit, &QLineEdit::textEdited, this, [this](const QString &) { changed(); });
        frame.slot->addWidget(edit);
        place(frame, key, [edit] { return edit->text(); });
    }

    void spinBox(const char *key, const char *caption, int minimum, int maximum, const char *specialValue = nullptr)
    {
        const Frame frame = createFrame(*m_current, caption);
        auto *box = new ScrollIgnoringSpinBox(frame.widget);
        box->setRange(minimum, maximum);
        if (specialValue)
            box->setSpecialValueText(translated(specialValue));
        box->setValue(value(key).toInt());
        QObject::connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int) { changed(); });
        frame.slot->addWidget(box);
        place(frame, key, [box] { return QString::number(box->value()); });
    }

    void orgstructureSelector(const char *key, const char *caption)
    {
        const Frame frame = createFrame(*m_current, caption);
        VXObjectSelector *box = selector(frame, 400);
        box->proxyModel()->setObjectTypeFilter(
            {db::orgstructure::SUBJECTROOT, db::orgstructure::FIRM, db::orgstructure::DEPARTMENT});
        finishSelector(box, frame, key, vantorix::ORGSTRUCTURE_DATANAME);
        box->setDefaultRootIndex(box->proxyModel()->index(0, 0));
    }

    void smartCardProfileSelector(const char *key, const char *caption)
    {
        const Frame frame = createFrame(*m_current, caption);
        finishSelector(selector(frame, 256), frame, key, vantorix::SMARTCARD_PROFILE_DATANAME);
    }

    QWidget *frame() const { return m_page.frame; }

    OBJECT_PARAMETERS parameters() const
    {
        OBJECT_PARAMETERS result;
        for (const Field &field : m_page.fields)
            result.insert(field.key, field.text());
        if (m_json.frame)
            result.insert(m_json.jsonKey, jsonText());
        return result;
    }

private:
    static void open(Section &section, QWidget *parent, LabelPosition labels, int columns)
    {
        section.labels = labels;
        section.columns = columns;
        section.frame = new VXSettingsGroupWidget(parent);
        section.frame->setContentMargins({10, 6, 10, 6});
        section.content = new QWidget(section.frame);
        section.grid = new QGridLayout(section.content);
        section.grid->setVerticalSpacing(6);
    }

    static void close(Section &section)
    {
        section.frame->addWidget(section.content);
        section.frame->addWidget(new QSplitter(Qt::Vertical, section.frame));
    }

    static VXObjectSelector *selector(const Frame &frame, int width)
    {
        auto *box = new VXObjectSelector(frame.widget);
        box->setProxyModel(new GrantedProxyModel(box));
        box->setFixedWidth(width);
        return box;
    }

    void finishSelector(VXObjectSelector *box, const Frame &frame, const char *key, const QString &dataName)
    {
        box->proxyModel()->setFilterAcceptsParents(true);
        box->setDataname(dataName);
        const QAbstractItemModel *objects = box->proxyModel()->sourceModel();
        box->setFixedHeight(qBound(100, 20 * objects->rowCount(objects->index(0, 0)), 200));
        box->view()->setItemDelegate(new VXTreeViewDelegate(box->view()));
        box->setCurrentUid(value(key).toUInt());
        if (auto *tree = qobject_cast<QTreeView *>(box->view()))
            tree->expand(box->currentModelIndex());
        QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int) { changed(); });
        frame.slot->addWidget(box);
        place(frame, key, [box] { return QString::number(box->currentUid()); });
    }

    QVariant value(const char *key) const
    {
        if (m_current == &m_json)
            return m_json.json.value(QLatin1String(key)).toVariant();
        return m_stored.value(QLatin1String(key));
    }

    template <typename Text>
    void place(const Frame &frame, const char *key, Text text)
    {
        Section &section = *m_current;
        section.grid->addWidget(frame.widget, section.cell / section.columns, section.cell % section.columns);
        ++section.cell;
        section.fields.push_back({QLatin1String(key), text});
    }

    QString jsonText() const
    {
        QJsonObject object;
        for (const Field &field : m_json.fields)
            object.insert(field.key, field.text());
        return QString::fromUtf8(QJsonDocument(object).toJson());
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return event->type() == QEvent::Wheel || QObject::eventFilter(watched, event);
    }
    void changed() { m_changed = true; }

    QWidget *m_parent;
    QHash<QString, QString> m_stored;
    Section m_page;
    Section m_json;
    Section *m_current = &m_page;
    bool m_changed = false;
};

HandwrittenPage::HandwrittenPage(DBGroups group, QWidget *parent)
    : m_writer(std::make_unique<Writer>(parent))
{
    pagedescription::page(group, *m_writer);
}

HandwrittenPage::~HandwrittenPage() = default;

QWidget *HandwrittenPage::widget() const
{
    return m_writer->frame();
}

OBJECT_PARAMETERS HandwrittenPage::parameters() const
{
    return m_writer->parameters();
}
