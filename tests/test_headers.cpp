// The headers that cmake/testing.cmake has compiled once for all tests are compiled with this file.
