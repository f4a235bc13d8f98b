// A client that dies with the server's object in its hands. Exit code 1: the object was not made.
#include <windows.h>

#include "tests/simulator/office/com_client.h"

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const tolvane::office::ComClient client(L"Excel.Application");
  TerminateProcess(GetCurrentProcess(), client.Created() == S_OK ? 0 : 1);
  return 1;
}
