#include <cstdlib>
#include <gmock/gmock.h>

// The entry of every test program: it draws on nobody's desktop and speaks a language that no machine
// changes, whoever starts it.
int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
