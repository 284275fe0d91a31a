// The host's numbered messages.
#pragma once

const char* HostMessage(int number);  // Shift-JIS; null for an unknown number
