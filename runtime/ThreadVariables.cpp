// The variables of a thread, in the place of the C++ runtime's. It has one itself in every DLL: what is being thrown.
// The runtime's way takes a record, two handles and a slot of the process's thousand, and gives none of them back when
// the DLL is freed. The system's fibre-local storage calls us for every thread, when that ends and when the DLL goes.
#include <malloc.h>
#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <cstring>

namespace {

// What the compiler makes of every thread_local variable.
struct Variable {
    std::size_t size;
    std::size_t align;
    void* unused;         // the runtime's own number for it
    const void* initial;  // null: zeros
};

// A thread's value of one, in front of its bytes. There are few variables, so a thread's values are a list.
struct Value {
    Value* next;
    const Variable* of;
};

std::size_t HeaderSize(const Variable& variable) {
    return (sizeof(Value) + variable.align - 1) / variable.align * variable.align;
}

void CALLBACK FreeValues(void* first) {
    for (auto* value = static_cast<Value*>(first); value;) {
        Value* next = value->next;
        _aligned_free(value);
        value = next;
    }
}

class Slot {
  public:
    ~Slot() {
        if (index_ != FLS_OUT_OF_INDEXES) FlsFree(index_);
    }
    DWORD Index() {
        if (index_ == FLS_OUT_OF_INDEXES) {
            DWORD none = FLS_OUT_OF_INDEXES;
            const DWORD fresh = FlsAlloc(FreeValues);
            if (!index_.compare_exchange_strong(none, fresh)) FlsFree(fresh);  // another thread was quicker
        }
        return index_;
    }

  private:
    std::atomic<DWORD> index_{FLS_OUT_OF_INDEXES};
};

// Destroyed after all other objects, which may have thread variables.
__attribute__((init_priority(101))) Slot slot;

Value* Make(const Variable& variable, Value* next) {
    const std::size_t header = HeaderSize(variable);
    const std::size_t align = variable.align > alignof(Value) ? variable.align : alignof(Value);
    auto* value = static_cast<Value*>(_aligned_malloc(header + variable.size, align));
    // Nobody could be told: the caller may be in the middle of telling.
    if (!value || !FlsSetValue(slot.Index(), value)) std::abort();
    *value = {next, &variable};
    char* bytes = reinterpret_cast<char*>(value) + header;
    if (variable.initial) {
        std::memcpy(bytes, variable.initial, variable.size);
    } else {
        std::memset(bytes, 0, variable.size);
    }
    return value;
}

}  // namespace

// Called by compiled code: the current thread's bytes of a variable.
extern "C" void* __emutls_get_address(void* object) {
    const auto& variable = *static_cast<const Variable*>(object);
    auto* first = static_cast<Value*>(FlsGetValue(slot.Index()));
    Value* value = first;
    while (value && value->of != &variable) value = value->next;
    if (!value) value = Make(variable, first);
    return reinterpret_cast<char*>(value) + HeaderSize(variable);
}
