#pragma once

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/objectparameters.h>

#include <memory>

class QWidget;

/// A page built without a catalogue, a tree of nodes or virtual steps: the least that the same widgets cost.
class HandwrittenPage
{
public:
    /// Builds the widgets of @p group below @p parent, filled from vantorix::LocalStorage.
    HandwrittenPage(DBGroups group, QWidget *parent);
    ~HandwrittenPage();

    QWidget *widget() const;
    vantorix::OBJECT_PARAMETERS parameters() const;

private:
    class Writer;
    std::unique_ptr<Writer> m_writer;
};
