#pragma once

// Where the reader's bytes come from: a file in the DLL, memory in tests.
class ByteSource {
  public:
    virtual ~ByteSource() = default;
    // Reads at most size bytes, often fewer. The number read, 0 at the end, -1 on failure.
    virtual int Read(char* buffer, unsigned size) = 0;
};
