#pragma once

namespace binding {

/// From here on the failures of `polarline/errors.h` reach Python as `polarline.InputError` and
/// `polarline.OutputError`.
void translateErrors();

}  // namespace binding
