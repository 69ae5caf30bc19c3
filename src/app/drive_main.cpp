// vellumry-drive: runs a script of user actions from standard input on a headless program.
#include <iostream>

#include "app/Driver.h"

int main() {
  vellumry::Driver driver(std::cout);
  return driver.run(std::cin) == 0 ? 0 : 1;
}
