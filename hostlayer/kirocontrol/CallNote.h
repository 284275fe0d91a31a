// Tells the host program that a command has called one of the host's functions (KiroHostObserveCalls).
#pragma once

#include <initializer_list>

#include "hostlayer/include/KiroHost.h"

KIROCONTROL_API void KiroNoteCall(const KiroHostCall& call);

constexpr KiroHostValue HostInteger(const char* name, int value) { return {name, nullptr, 0, value, kKiroHostInteger}; }
constexpr KiroHostValue HostReal(const char* name, double value) { return {name, nullptr, value, 0, kKiroHostReal}; }
constexpr KiroHostValue HostFlag(const char* name, bool value) { return {name, nullptr, 0, value, kKiroHostFlag}; }
constexpr KiroHostValue HostPointer(KiroHostValueKind kind, const char* name, const void* value) {
    return {name, value, 0, 0, kind};
}
constexpr KiroHostValue HostText(const char* name, const char* euc) { return HostPointer(kKiroHostText, name, euc); }

inline void NoteCall(const char* name, std::initializer_list<KiroHostValue> arguments) {
    KiroNoteCall({name, arguments.begin(), arguments.size(), {"", nullptr, 0, 0, kKiroHostNoValue}});
}
inline void NoteCall(const char* name, std::initializer_list<KiroHostValue> arguments, int returned) {
    KiroNoteCall({name, arguments.begin(), arguments.size(), HostInteger("", returned)});
}
