#pragma once

#include <host/settingssearch.h>

#include <QMap>
#include <QPointer>
#include <QWidget>

class QLineEdit;
class QToolButton;
class SearchResults;

/// A line in which settings are searched for as one types, with two filters and the results below it.
///
/// The results lie over the window's content, right below the field, and go away with its focus. The keyboard stays in
/// the line: up and down walk the results, Enter chooses one, Escape empties the line. Ctrl+F leads to it from anywhere
/// in the window. While nothing is typed, a filter shows all that it lets through.
class SearchField : public QWidget
{
    Q_OBJECT

public:
    /// @p search must live longer.
    explicit SearchField(const SettingsSearch &search, QWidget *parent = nullptr);
    ~SearchField() override;

    /// What the filters let through. Results follow.
    void setChanged(const QVector<SettingAddress> &changed);
    void setProblematic(const QVector<SettingAddress> &problematic);

    /// Puts the keyboard into the line, ready to replace what is in it.
    void activate();

Q_SIGNALS:
    void resultChosen(const SettingAddress &address);
    /// How many results each page has; empty while nothing is searched for.
    void resultsChanged(const QMap<DBGroups, int> &hits);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// A button and what is shown while it is down.
    struct Filter
    {
        QToolButton *button;
        QVector<SettingAddress> addresses;
    };

    QToolButton *createFilterButton(const QString &name);
    void setAddresses(Filter &filter, const QVector<SettingAddress> &addresses);
    bool isSearching() const;
    bool isFiltering() const;
    bool isLetThrough(const SettingAddress &address) const;
    QVector<SettingsSearch::Hit> hits() const;

    void searchAndShow();
    void search();
    void showResults();
    void hideResults();
    void placeResults();
    void describe();
    void choose();
    bool handleKey(int key);
    void retranslate();

    const SettingsSearch &m_search;
    QLineEdit *m_line;
    Filter m_changed;
    Filter m_problematic;
    QPointer<SearchResults> m_results; ///< a child of the window from the first time on that it is shown
};
