#include "uiloaderpage.h"

#include "pagedescription.h"

#include <localstorage/localstorage.h>

#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QSpinBox>
#include <QUiLoader>
#include <QXmlStreamWriter>

using vantorix::OBJECT_PARAMETERS;

namespace {

/// Prefix of the input widgets' names, before their key; members of a JSON object follow the object's key and a dot.
const QString inputPrefix = QStringLiteral("input_");

/// Writes a page as the text of a .ui file. Selectors are plain combo boxes: the loader knows no object tree.
class FormText
{
public:
    FormText()
        : m_xml(&m_text)
    {
        m_xml.writeStartElement(QStringLiteral("ui"));
        m_xml.writeAttribute(QStringLiteral("version"), QStringLiteral("4.0"));
    }

    QByteArray text()
    {
        m_xml.writeEndDocument();
        return m_text.toUtf8();
    }

    void begin(const char *title, const char *, LabelPosition labels, int columns)
    {
        m_labels = labels;
        m_columns = columns;
        openGroup(QStringLiteral("page"), title);
    }
    void end() { closeGroup(); }
    void beginJson(const char *key, const char *title, int columns)
    {
        const int row = (m_cell + m_columns - 1) / m_columns;
        openItem(row, 0, m_columns);
        m_outer = {m_labels, m_columns, (row + 1) * m_columns};
        m_labels = LabelPosition::Right;
        m_columns = columns;
        m_cell = 0;
        m_jsonKey = QLatin1String(key) + QLatin1Char('.');
        openGroup(QLatin1String(key), title);
    }
    void endJson()
    {
        closeGroup();
        m_xml.writeEndElement();
        m_labels = m_outer.labels;
        m_columns = m_outer.columns;
        m_cell = m_outer.cell;
        m_jsonKey.clear();
    }

    void checkBox(const char *key, const char *caption)
    {
        openEditor(nullptr);
        openInput("QCheckBox", key);
        text("text", caption);
        closeEditor();
    }
    template <std::size_t N>
    void comboBox(const char *key, const char *caption, const pagedescription::Choice (&choices)[N])
    {
        openEditor(caption);
        openInput("QComboBox", key);
        for (const pagedescription::Choice &choice : choices) {
            m_xml.writeStartElement(QStringLiteral("item"));
            text("text", choice.caption);
            m_xml.writeEndElement();
        }
        closeEditor();
    }
    void lineEdit(const char *key, const char *caption, const char * = nullptr)
    {
        openEditor(caption);
        openInput("QLineEdit", key);
        closeEditor();
    }
    void readOnly(const char *key, const char *caption) { lineEdit(key, caption); }
    void password(const char *key, const char *caption) { lineEdit(key, caption); }
    void spinBox(const char *key, const char *caption, int minimum, int maximum, const char *specialValue = nullptr)
    {
        openEditor(caption);
        openInput("QSpinBox", key);
        number("minimum", minimum);
        number("maximum", maximum);
        if (specialValue)
            text("specialValueText", specialValue);
        closeEditor();
    }
    void orgstructureSelector(const char *key, const char *caption) { comboBox(key, caption, pagedescription::noYes); }
    void smartCardProfileSelector(const char *key, const char *caption) { orgstructureSelector(key, caption); }

private:
    struct Outer
    {
        LabelPosition labels;
        int columns;
        int cell;
    };

    void openWidget(const QString &className, const QString &name)
    {
        m_xml.writeStartElement(QStringLiteral("widget"));
        m_xml.writeAttribute(QStringLiteral("class"), className);
        m_xml.writeAttribute(QStringLiteral("name"), name);
    }
    void openLayout(const QString &className)
    {
        m_xml.writeStartElement(QStringLiteral("layout"));
        m_xml.writeAttribute(QStringLiteral("class"), className);
    }
    void openItem(int row, int column, int columnSpan = 1)
    {
        m_xml.writeStartElement(QStringLiteral("item"));
        m_xml.writeAttribute(QStringLiteral("row"), QString::number(row));
        m_xml.writeAttribute(QStringLiteral("column"), QString::number(column));
        m_xml.writeAttribute(QStringLiteral("colspan"), QString::number(columnSpan));
    }
    void openProperty(const char *name)
    {
        m_xml.writeStartElement(QStringLiteral("property"));
        m_xml.writeAttribute(QStringLiteral("name"), QLatin1String(name));
    }
    void text(const char *name, const char *value)
    {
        openProperty(name);
        m_xml.writeTextElement(QStringLiteral("string"), QString::fromUtf8(value));
        m_xml.writeEndElement();
    }
    void number(const char *name, int value)
    {
        openProperty(name);
        m_xml.writeTextElement(QStringLiteral("number"), QString::number(value));
        m_xml.writeEndElement();
    }
    void flag(const char *name, bool value)
    {
        openProperty(name);
        m_xml.writeTextElement(QStringLiteral("bool"), value ? QStringLiteral("true") : QStringLiteral("false"));
        m_xml.writeEndElement();
    }

    void openGroup(const QString &name, const char *title)
    {
        openWidget(QStringLiteral("QGroupBox"), name);
        text("title", title);
        openLayout(QStringLiteral("QGridLayout"));
    }
    void closeGroup()
    {
        m_xml.writeEndElement();
        m_xml.writeEndElement();
    }

    void label(const char *name, const char *caption, bool visible, int row, int column)
    {
        openItem(row, column);
        openWidget(QStringLiteral("QLabel"), QLatin1String(name));
        text("text", caption ? caption : "");
        flag("wordWrap", true);
        flag("visible", visible);
        m_xml.writeEndElement();
        m_xml.writeEndElement();
    }
    void openEditor(const char *caption)
    {
        const LabelPosition position = caption ? m_labels : LabelPosition::None;
        openItem(m_cell / m_columns, m_cell % m_columns);
        ++m_cell;
        openWidget(QStringLiteral("QWidget"), QStringLiteral("editor"));
        openLayout(QStringLiteral("QGridLayout"));
        label("topLabel", caption, position == LabelPosition::Top, 0, 1);
        label("leftLabel", caption, position == LabelPosition::Left, 1, 0);
        label("rightLabel", caption, position == LabelPosition::Right, 1, 2);
        label("bottomLabel", caption, position == LabelPosition::Bottom, 2, 1);
        openItem(1, 1);
        openWidget(QStringLiteral("QWidget"), QStringLiteral("centralWidget"));
        openLayout(QStringLiteral("QVBoxLayout"));
        m_xml.writeStartElement(QStringLiteral("item"));
    }
    void openInput(const char *className, const char *key)
    {
        openWidget(QLatin1String(className), inputPrefix + m_jsonKey + QLatin1String(key));
    }
    /// Closes the input widget and, from inside out, its item, layout, slot, item, layout, editor and item.
    void closeEditor()
    {
        for (int i = 0; i < 8; ++i)
            m_xml.writeEndElement();
    }

    QString m_text;
    QXmlStreamWriter m_xml;
    LabelPosition m_labels = LabelPosition::Right;
    int m_columns = 1;
    int m_cell = 0;
    Outer m_outer = {};
    QString m_jsonKey;
};

const QByteArray &formText(DBGroups group)
{
    static QHash<int, QByteArray> texts;
    QByteArray &text = texts[int(group)];
    if (text.isEmpty()) {
        FormText writer;
        pagedescription::page(group, writer);
        text = writer.text();
    }
    return text;
}

void fill(QWidget *input, const QVariant &value)
{
    if (auto *box = qobject_cast<QCheckBox *>(input))
        box->setChecked(value.toBool());
    else if (auto *combo = qobject_cast<QComboBox *>(input))
        combo->setCurrentIndex(value.toInt());
    else if (auto *edit = qobject_cast<QLineEdit *>(input))
        edit->setText(value.toString());
    else if (auto *spin = qobject_cast<QSpinBox *>(input))
        spin->setValue(value.toInt());
}

QString shown(const QWidget *input)
{
    if (const auto *box = qobject_cast<const QCheckBox *>(input))
        return QVariant(box->isChecked()).toString();
    if (const auto *combo = qobject_cast<const QComboBox *>(input))
        return QString::number(combo->currentIndex());
    if (const auto *edit = qobject_cast<const QLineEdit *>(input))
        return edit->text();
    if (const auto *spin = qobject_cast<const QSpinBox *>(input))
        return QString::number(spin->value());
    return {};
}

/// Calls @p visit with every input widget, its stored key, and its member name if it belongs to a JSON object.
template <typename Visit>
void visitInputs(const QWidget *page, const Visit &visit)
{
    for (QWidget *input : page->findChildren<QWidget *>()) {
        if (!input->objectName().startsWith(inputPrefix))
            continue;
        const QString name = input->objectName().mid(inputPrefix.size());
        visit(input, name.section(QLatin1Char('.'), 0, 0), name.section(QLatin1Char('.'), 1));
    }
}
} // namespace

UiLoaderPage::UiLoaderPage(QUiLoader &loader, DBGroups group, QWidget *parent)
{
    QBuffer buffer;
    buffer.setData(formText(group));
    buffer.open(QIODevice::ReadOnly);
    m_widget = loader.load(&buffer, parent);

    const QHash<QString, QString> stored = vantorix::LocalStorage::instance()->dbSettings();
    visitInputs(m_widget, [&](QWidget *input, const QString &key, const QString &member) {
        const QString text = stored.value(key);
        fill(input, member.isEmpty() ? QVariant(text)
                                     : QJsonDocument::fromJson(text.toUtf8()).object().value(member).toVariant());
    });
}

UiLoaderPage::~UiLoaderPage()
{
    delete m_widget;
}

QWidget *UiLoaderPage::widget() const
{
    return m_widget;
}

OBJECT_PARAMETERS UiLoaderPage::parameters() const
{
    OBJECT_PARAMETERS result;
    QHash<QString, QJsonObject> objects;
    visitInputs(m_widget, [&](const QWidget *input, const QString &key, const QString &member) {
        if (member.isEmpty())
            result.insert(key, shown(input));
        else
            objects[key].insert(member, shown(input));
    });
    for (auto object = objects.begin(); object != objects.end(); ++object)
        result.insert(object.key(), QString::fromUtf8(QJsonDocument(object.value()).toJson()));
    return result;
}
