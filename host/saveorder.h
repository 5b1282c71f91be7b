#pragma once

#include <host/installation.h>

#include <vxsettings/objectparameters.h>

#include <QUuid>

/// Who wants something saved: somebody who may edit only what PageAccess allows, or somebody who has said that nothing
/// of that kind is to hold for them. Whoever does not say so is an operator.
enum class Authority { Operator, Administrator };

/// What is to be saved.
struct SaveOrder
{
    vantorix::OBJECT_PARAMETERS changes; ///< stored key → text
    Installation base;                   ///< what the changes start from
    QString reason = {};                 ///< for the history; may be empty
    Authority authority = Authority::Operator;
    /// Under which the history will have it. It is there before the save, to ask for it if nobody knows what became
    /// of it.
    QString id = QUuid::createUuid().toString(QUuid::WithoutBraces);
};
