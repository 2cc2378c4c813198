#pragma once

/// Seconds of processor time that this process has used so far, all its threads together: what others do on the
/// machine does not count.
double processorSeconds();

/// Seconds of the clock on the wall.
double wallSeconds();
