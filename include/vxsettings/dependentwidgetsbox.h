#pragma once

#include <vxsettings/vxsettings_export.h>

#include <QHash>
#include <QSize>
#include <QString>
#include <QWidget>

#include <memory>
#include <utility>

class QCheckBox;
class QJsonObject;
class QLayout;
class Ui_DependentWidgetsBox;

/// What a DependentWidgetsBox is made from.
namespace dependent_widget {

/// The JSON member that carries the flag of the whole group.
inline const QString CHECKED_KEY = QStringLiteral("checked");
/// The look of the inner check boxes.
inline const QString BUTTON_STYLESHEET =
    QStringLiteral("color: #7B7B7B; font-size: 12px; font-style: normal; font-weight: 500;");
/// Of the icon before the title, in device-independent pixels.
constexpr QSize ICON_SIZE = {24, 24};

/// One group of dependent flags.
struct GroupInfo
{
    QString name; ///< untranslated title
    QString icon; ///< theme icon name
    /// Flag key → untranslated caption of its check box, and its place in the column: 0, 1, 2 and so on without gaps.
    QHash<QString, std::pair<QString, int>> params;
};
} // namespace dependent_widget

/// A group check box over a column of check boxes that depend on it; edits a flat JSON object of booleans.
///
/// The group box shows what the inner boxes say: all, none, or some of them; clicking it checks or unchecks them all.
/// It is named by description and title for assistive technology, and the inner boxes follow it in the tab order. Title
/// and captions follow the language; the description is the host's to translate.
class VXSETTINGS_EXPORT DependentWidgetsBox : public QWidget
{
    Q_OBJECT

public:
    /// A box without inner check boxes; @p parent, which may be null, owns it.
    explicit DependentWidgetsBox(QWidget *parent);
    ~DependentWidgetsBox() override;

    /// Sets the text beside the group check box.
    void setDescription(const QString &description);
    /// Shows one check box per member of @p flags that @p info knows, replacing those that were there.
    ///
    /// Texts of @p info are translated in @p context. A member that is no boolean counts as false. The member "checked"
    /// is not read: the state of the group box follows from the others.
    void setData(const QString &context, const dependent_widget::GroupInfo &info, const QJsonObject &flags);
    /// One boolean per inner check box, and "checked", which is also true if only some of them are checked.
    QJsonObject getData() const;
    /// Shows on the group box that @p checked of @p total flags are set, without a signal.
    void setGroupCheckBoxState(int total, int checked);
    /// Deletes the widgets of @p layout and of the layouts in it, and unchecks the group box without a signal.
    void clearData(QLayout *layout);

Q_SIGNALS:
    /// The user clicked the inner check box of the flag key that comes first.
    void paramChanged(const QString &, bool checked);
    /// The user clicked the group check box.
    void groupChanged(bool checked);

protected:
    /// Shows title and captions in the new language.
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void onInnerCheckBoxClicked(bool);
    void onGroupCheckBoxClicked(bool);

private:
    void retranslate();
    void nameGroupCheckBox();
    QList<QCheckBox *> innerCheckBoxes() const;

    std::unique_ptr<Ui_DependentWidgetsBox> m_ui;
};
