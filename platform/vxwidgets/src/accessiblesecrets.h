#pragma once

/// Keeps masked texts from whoever listens to the accessibility of this process.
///
/// Qt masks the text of such a line edit when it is asked for it, but tells every change of it in clear.
namespace accessiblesecrets {

/// From now on. An update handler that was installed before gets the events after this one; one that is installed later
/// takes its place, and is to call it.
void guard();
} // namespace accessiblesecrets
