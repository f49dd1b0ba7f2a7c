// The window classes that the stand-in brings along.
#pragma once

namespace winsim {

void AddTreeControlClass();
void AddListControlClass();
void AddToolTipClass();
void AddEditClass();
void AddHeaderClass();

}  // namespace winsim
