#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QPersistentModelIndex>

class QStylePainter;
class QTreeView;
class TreeBoxView;

/// A combo box whose popup shows its model as a tree. Any node that is enabled and selectable can be chosen.
///
/// currentIndexChanged() comes once per change of node, also when the new node has the row number of the old one.
/// As the row number says little here, use currentModelIndex() instead of currentIndex(). The arrow keys on the closed
/// box walk the tree as the popup would show it, typed letters find the next name that begins with them, and the wheel
/// is left to the page around the box. A box that is several lines high shows the branch that leads to the node.
///
/// The popup's view is a QTreeView of the box's own and is not to be replaced by setView().
class VXWIDGETS_EXPORT VXTreeBox : public QComboBox
{
    Q_OBJECT

public:
    /// With an empty model, as a QComboBox begins; @p parent owns it.
    explicit VXTreeBox(QWidget *parent = nullptr);

    /// The node of model() that the popup opens expanded. It is shown and chosen like any other; invalid for none.
    void setDefaultRootIndex(const QModelIndex &index);
    /// Invalid if none was set, or if it is gone from the model.
    QModelIndex defaultRootIndex() const { return m_defaultRoot; }

    /// Chooses any node of model(), the selectable or not; an invalid index chooses none.
    void setCurrentModelIndex(const QModelIndex &index);
    /// The chosen node of model(); invalid if there is none.
    QModelIndex currentModelIndex() const;

    /// Opens the tree with the chosen node in sight; does nothing if there is none in the model.
    void showPopup() override;

protected:
    /// For a derived class that sets a model before anybody sees the box: the view is spared the default one.
    enum ModelComesLater { modelComesLater };
    /// Without a model until setModel().
    VXTreeBox(ModelComesLater, QWidget *parent);

    /// Shows the path to the chosen node as a tool tip where the box has no room for it.
    bool event(QEvent *event) override;
    /// Arrow keys, Home, End and Page keys walk the tree, letters search, Alt+Down, Space and F4 open it.
    void keyPressEvent(QKeyEvent *event) override;
    /// Paints the branch that leads to the node if the box is several lines high.
    void paintEvent(QPaintEvent *event) override;
    /// Ignores the event, so that it goes on to the widget around the box.
    void wheelEvent(QWheelEvent *event) override;

private:
    using Neighbour = QModelIndex (QTreeView::*)(const QModelIndex &) const;

    void followCurrentIndex(int row);
    bool returnRootIndex();
    void chooseByUser(const QModelIndex &index);

    void revealCurrent();
    void preparePopup();
    QRect popupGeometry() const;
    int popupRowCount() const;

    bool opensPopup(const QKeyEvent &event) const;
    bool isSearching() const;
    bool step(int key);
    bool search(const QString &typed);
    void chooseFirstMatch(const QString &begin, const QModelIndex &first);
    QModelIndex firstNode() const;
    QModelIndex lastNode() const;
    QModelIndex choosableFrom(QModelIndex index, Neighbour next) const;

    /// The names that lead to the chosen node, the last ones if there is not room for all.
    QStringList shownBranch(const QStyleOptionComboBox &option) const;
    void drawBranch(QStylePainter &painter, const QStyleOptionComboBox &option, const QStringList &branch) const;
    void drawLine(QStylePainter &painter, const QRect &line, const QPalette &colors, const QString &text) const;
    int branchLineHeight(const QStyleOptionComboBox &option) const;
    QRect labelRect(const QStyleOptionComboBox &option) const;
    QString labelText(const QStyleOptionComboBox &option) const;
    bool showPathAt(const QPoint &globalPos);

    TreeBoxView *m_tree; // child of the popup
    QPersistentModelIndex m_defaultRoot;
    QPersistentModelIndex m_current;
    QPersistentModelIndex m_rootIndex;
    bool m_isRootLent = false;
    QString m_searched;
    QElapsedTimer m_searchTime;
};
