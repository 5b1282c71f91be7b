#pragma once

#include <host/settingssearch.h>

#include <QListWidget>

/// The settings that a search has found, each by its caption, its page and the text in which it was found. The first
/// one is current. Never takes the keyboard.
class SearchResults : public QListWidget
{
    Q_OBJECT

public:
    explicit SearchResults(QWidget *parent = nullptr);

    void setHits(const QVector<SettingsSearch::Hit> &hits);
    int hitCount() const;
    /// Of the current row. Only if there are hits.
    const SettingAddress &currentAddress() const;
    /// The current row in words, or that there is none.
    QString currentText() const;
    /// For all rows, none of them cut off.
    int contentWidth() const;
    int contentHeight() const;

    /// Moves the current row as the key does in a list.
    void move(int key);

private:
    QVector<SettingsSearch::Hit> m_hits;
};
