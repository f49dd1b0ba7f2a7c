#include "shell/shell_object.h"

namespace winsim {

int& LiveInterfaces() {
  static int live = 0;
  return live;
}

}  // namespace winsim
