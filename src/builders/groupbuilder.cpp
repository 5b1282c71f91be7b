#include "groupbuilder.h"

#include "dbsc.h"

#include <vxsettings/dbsettingshelper.h>
#include <vxsettings/dbsettingsparameterfactory.h>

#include <localstorage/localstorage.h>
#include <vxstyles/vxiconhelper.h>
#include <vxwidgets/vxsettingsgroupwidget.h>

#include <QGridLayout>
#include <QIcon>
#include <QSplitter>

namespace {

constexpr QSize iconSize(24, 24);

/// Fills a grid row by row; a nested group takes a whole row of its own.
class GridFiller
{
public:
    GridFiller(QGridLayout *grid, int columns)
        : m_grid(grid)
        , m_columns(columns)
    {}

    void add(QWidget *widget)
    {
        m_grid->addWidget(widget, m_cell / m_columns, m_cell % m_columns);
        ++m_cell;
    }

    void addRow(QWidget *widget)
    {
        const int row = (m_cell + m_columns - 1) / m_columns;
        m_grid->addWidget(widget, row, 0, 1, m_columns);
        m_cell = (row + 1) * m_columns;
    }

private:
    QGridLayout *m_grid;
    int m_columns;
    int m_cell = 0;
};

VXSettingsGroupWidget *frameOf(const DBSettings &node)
{
    return qobject_cast<VXSettingsGroupWidget *>(node.widget().get());
}
} // namespace

GroupBuilder::GroupBuilder(DBGroups group, QWidget *parent, QWidget *root)
    : m_group(group)
    , m_parent(parent)
    , m_root(root)
    , m_node(std::make_unique<DBSettingsGroup>(int(group)))
{}

GroupBuilder::~GroupBuilder() = default;

std::unique_ptr<DBSettings> GroupBuilder::getSettings()
{
    return std::move(m_node);
}

DBSettingsType GroupBuilder::type() const
{
    return m_node->type();
}

DBSettingsBuilder &GroupBuilder::createWidget()
{
    auto *frame = new VXSettingsGroupWidget(rootWidget());
    m_node->setWidget(frame);
    frame->setShowHideButton(false);
    frame->setContentMargins({10, 6, 10, 6});
    frame->collapse();
    frame->addWidget(createContent(frame));
    frame->addWidget(new QSplitter(Qt::Vertical, frame));
    frame->expand();
    return *this;
}

QWidget *GroupBuilder::createContent(QWidget *frame)
{
    auto *content = new QWidget(frame);
    auto *grid = new QGridLayout(content);
    grid->setVerticalSpacing(6);
    GridFiller filler(grid, DBSettingsHelper::groupLayout(m_group).columnCount);

    for (const QString &key : DBSettingsHelper::groupParams(m_group)) {
        qCDebug(dbsc) << "Param name is " << key << "Params value is"
                      << vantorix::LocalStorage::instance()->dbSettings().value(key);
        std::unique_ptr<DBSettings> child = DBSettingsParameterFactory::create(m_group, key, rootWidget(), frame);
        const std::shared_ptr<QWidget> widget = child ? child->widget() : nullptr;
        if (!widget)
            continue;
        if (child->isGroup())
            filler.addRow(widget.get());
        else
            filler.add(widget.get());
        m_node->settings().push_back(std::move(child));
    }
    return content;
}

DBSettingsBuilder &GroupBuilder::createTitle()
{
    if (VXSettingsGroupWidget *frame = frameOf(*m_node))
        frame->setTitle(DBSettingsHelper::groupName(m_group));
    return *this;
}

DBSettingsBuilder &GroupBuilder::createIcon()
{
    if (VXSettingsGroupWidget *frame = frameOf(*m_node)) {
        const QIcon icon = QIcon::fromTheme(DBSettingsHelper::groupIconName(m_group));
        frame->setIcon(VXIconHelper::pixmap(icon, iconSize, Qt::black));
    }
    return *this;
}

DBSettingsGroup *GroupBuilder::node() const
{
    return m_node.get();
}

void GroupBuilder::setNode(std::unique_ptr<DBSettingsGroup> node)
{
    m_node = std::move(node);
}

QWidget *GroupBuilder::rootWidget() const
{
    return m_root ? m_root : m_parent;
}
