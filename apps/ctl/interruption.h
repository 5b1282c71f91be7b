#pragma once

#include <QObject>

/// While it lives, the first SIGINT or SIGTERM, which a person sends with Ctrl+C, does not end the program but is told
/// by a signal. The second one ends it as usual. One at a time.
class Interruption : public QObject
{
    Q_OBJECT

public:
    Interruption();
    ~Interruption() override;

    bool isRequested() const;

Q_SIGNALS:
    void requested();
};
