// The prompter's interface has no code of its own; its destructor lives here.
#include "prompter.h"

namespace tarn::host {

Prompter::~Prompter() = default;

} // namespace tarn::host
