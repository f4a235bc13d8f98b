#include "tests/simulator/abi/c_caller.h"

#include <string.h>
#include <windows.h>

/* Compiled without optimization, so that nothing but the call stands between the two looks. */
#ifdef __i386__
#define STACK_INTO(place) __asm__ volatile("movl %%esp, %0" : "=r"(place))
#else
#define STACK_INTO(place) (place) = 0
#endif

#define CALL(call)                                                 \
  do {                                                             \
    UINT_PTR before, after;                                        \
    STACK_INTO(before);                                            \
    call;                                                          \
    STACK_INTO(after);                                             \
    if (before != after) return #call " left the stack elsewhere"; \
  } while (0)

#define EXPECT(what) \
  if (!(what)) return "not so: " #what

/* `type` is a pointer to a function; the cast through void* is what GetProcAddress is made for. */
#define LOAD(type, name)                                           \
  type name = (type)(void*)GetProcAddress((HMODULE)module, #name); \
  if (name == NULL) return "not exported: " #name

const char* DriveCanusb(void* module) {
  typedef short(__stdcall * Find)(char* serial, int size);
  typedef int(__stdcall * Open)(const char* serial, char* rate, int code, int mask, int flags);
  typedef int(__stdcall * Close)(int handle);
  typedef int(__stdcall * Read)(int handle, void* record);
  typedef int(__stdcall * Version)(int handle, char* text);
  LOAD(Find, canusb_getFirstAdapter);
  LOAD(Find, canusb_getNextAdapter);
  LOAD(Open, canusb_Open);
  LOAD(Read, canusb_Read);
  LOAD(Version, canusb_VersionInfo);
  LOAD(Close, canusb_Close);

  char serial[32];
  char rate[16] = "500";
  char version[64];
  unsigned char record[20];
  int handle = 0, found = 0, done = 0, stamp = 0, id = 0;
  CALL(found = canusb_getFirstAdapter(serial, 32));
  EXPECT(found > 0);
  EXPECT(strcmp(serial, "LWR12345") == 0);
  CALL(found = canusb_getNextAdapter(serial, 32));
  EXPECT(found <= 0);
  CALL(handle = canusb_Open("LWR12345", rate, 0, -1, 1));
  EXPECT(handle > 0);
  CALL(done = canusb_VersionInfo(handle, version));
  EXPECT(done > 0);
  EXPECT(strcmp(version, "V7") == 0);
  CALL(done = canusb_Read(handle, record));
  EXPECT(done > 0);
  CALL(done = canusb_Read(handle, record));
  EXPECT(done > 0);
  memcpy(&id, record, 4);
  memcpy(&stamp, record + 4, 4);
  EXPECT(id == 0x1ABCDEF0);
  EXPECT(stamp == 1);
  EXPECT(record[8] == 128);
  EXPECT(record[9] == 3);
  EXPECT(record[10] == 0x11 && record[11] == 0x22 && record[12] == 0x33);
  CALL(canusb_Close(handle));
  return NULL;
}

const char* DriveIfcan(void* module) {
  typedef int(__stdcall * Open)(const char* name);
  typedef int(__stdcall * OfHandle)(int handle);
  typedef int(__stdcall * WithRecord)(int handle, int* words);
  typedef int(__stdcall * Receive)(int handle, int* words, int* count);
  LOAD(Open, CanOpenPort);
  LOAD(WithRecord, CanGetPortInformation);
  LOAD(WithRecord, CanGetConfig);
  LOAD(WithRecord, CanSetConfig);
  LOAD(OfHandle, CanActivate);
  LOAD(Receive, CanReceiveMessage);
  LOAD(OfHandle, CanDeactivate);
  LOAD(OfHandle, CanClosePort);

  int handle = 0, status = 0, count = 1;
  int information[9], config[7], record[6];
  unsigned char bytes[24];
  CALL(handle = CanOpenPort("IFCAN1"));
  EXPECT(handle == -1);
  CALL(handle = CanOpenPort("IFCAN3"));
  EXPECT(handle != -1);
  CALL(status = CanGetPortInformation(handle, information));
  EXPECT(status == 0);
  EXPECT(information[0] == 100 && information[1] == 101 && information[2] == 102);
  EXPECT(information[3] == 103 && information[4] == 104 && information[5] == 105);
  EXPECT(information[6] == 106 && information[7] == 107 && information[8] == 108);
  CALL(status = CanGetConfig(handle, config));
  EXPECT(status == 0);
  EXPECT(config[1] == 11 && config[5] == 15);
  config[0] = 1;
  config[6] = 295;
  CALL(status = CanSetConfig(handle, config));
  EXPECT(status == 0);
  CALL(status = CanActivate(handle));
  EXPECT(status == 0);
  CALL(status = CanReceiveMessage(handle, record, &count));
  EXPECT(status == 0);
  count = 1;
  CALL(status = CanReceiveMessage(handle, record, &count));
  EXPECT(status == 0);
  memcpy(bytes, record, sizeof bytes);
  EXPECT(record[0] == 3);
  EXPECT((unsigned)record[2] == 0x9ABCDEF0u);
  EXPECT(bytes[12] == 0x11 && bytes[13] == 0x22 && bytes[14] == 0x33);
  EXPECT(record[5] == 1000);
  CALL(status = CanDeactivate(handle));
  EXPECT(status == 0);
  CALL(status = CanClosePort(handle));
  EXPECT(status == 0);
  return NULL;
}

const char* DriveCanlib(void* module) {
  typedef void(__stdcall * Initialize)(void);
  typedef int(__stdcall * Count)(int* count);
  typedef int(__stdcall * Open)(int channel, int flags);
  typedef int(__stdcall * Data)(int channel, int item, void* buffer, size_t size);
  typedef int(__stdcall * Params)(int handle, int rate, unsigned tseg1, unsigned tseg2,
                                  unsigned sjw, unsigned samples, unsigned syncmode);
  typedef int(__stdcall * Driver)(int handle, unsigned type);
  typedef int(__stdcall * OfHandle)(int handle);
  typedef int(__stdcall * Read)(int handle, int* id, void* data, int* dlc, int* flag, int* time);
  LOAD(Initialize, canInitializeLibrary);
  LOAD(Count, canGetNumberOfChannels);
  LOAD(Open, canOpenChannel);
  LOAD(Data, canGetChannelData);
  LOAD(Params, canSetBusParams);
  LOAD(Driver, canSetBusOutputControl);
  LOAD(OfHandle, canBusOn);
  LOAD(Read, canRead);
  LOAD(OfHandle, canBusOff);
  LOAD(OfHandle, canClose);

  int count = 0, handle = 0, status = 0;
  int id = 0, dlc = 0, flag = 0, time = 0;
  char name[64];
  unsigned char data[8];
  CALL(canInitializeLibrary());
  CALL(status = canGetNumberOfChannels(&count));
  EXPECT(status == 0 && count == 1);
  CALL(handle = canOpenChannel(0, 128));
  EXPECT(handle >= 0);
  CALL(status = canGetChannelData(handle, 13, name, sizeof name));
  EXPECT(status == 0);
  EXPECT(strcmp(name, "the first") == 0);
  CALL(status = canSetBusParams(handle, -2, 5, 2, 1, 3, 0));
  EXPECT(status == 0);
  CALL(status = canSetBusOutputControl(handle, 1));
  EXPECT(status == 0);
  CALL(status = canBusOn(handle));
  EXPECT(status == 0);
  CALL(status = canRead(handle, &id, data, &dlc, &flag, &time));
  EXPECT(status == 0);
  CALL(status = canRead(handle, &id, data, &dlc, &flag, &time));
  EXPECT(status == 0);
  EXPECT(id == 0x1ABCDEF0);
  EXPECT(dlc == 3);
  EXPECT(flag == 4);
  EXPECT(time == 1);
  EXPECT(data[0] == 0x11 && data[1] == 0x22 && data[2] == 0x33);
  CALL(status = canBusOff(handle));
  EXPECT(status == 0);
  CALL(status = canClose(handle));
  EXPECT(status == 0);
  return NULL;
}

const char* DriveQxt100(void* module) {
  typedef double(__stdcall * Clock)(void);
  typedef int(__stdcall * Fade)(int colour, int remaining, int total);
  LOAD(Clock, qx_timeGetTime);
  LOAD(Fade, ColorAttenuation);

  double first = 0.0, second = 0.0;
  int colour = 0;
  CALL(first = qx_timeGetTime());
  Sleep(20);
  CALL(second = qx_timeGetTime());
  EXPECT(second - first >= 10.0 && second - first < 60000.0);
  CALL(colour = ColorAttenuation(0x00FF0000, 1000, 4000));
  EXPECT(colour == 0x003F0000);
  return NULL;
}
