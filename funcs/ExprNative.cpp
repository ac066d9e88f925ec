#include "funcs/ExprNative.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <vector>

#include "funcs/ExprMachine.h"
#include "shell/runtime/RuntimeError.h"

#if defined(__x86_64__) && defined(__linux__) && (defined(__GNUC__) || defined(__clang__))
#define CALVIX_NATIVE_CODE 1
#include <sys/mman.h>
#include <unistd.h>

// The unwinder's registry of frame descriptions (libgcc): begin points at a
// run of CIE and FDE records ended by a zero length.
extern "C" void __register_frame(void* begin);
extern "C" void __deregister_frame(void* begin);
#endif

#if defined(CALVIX_NATIVE_CODE)
namespace {

[[noreturn]] void raiseOverflow() { rt::raise(rt::kOverflow); }

// The few x86-64 instructions the code needs, by their bytes. Values pass in
// xmm0 (and xmm1 for a second operand); rax holds addresses; spilled values
// live below rbp.
class Emitter {
 public:
  std::vector<std::uint8_t> bytes;

  void put(std::initializer_list<std::uint8_t> b) {
    for (std::uint8_t x : b) bytes.push_back(x);
  }
  void put32(std::uint32_t v) {
    for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
  }
  void put64(std::uint64_t v) {
    for (int i = 0; i < 8; ++i) bytes.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
  }
  template <typename T>
  void raxTo(const T* address) {  // mov rax, imm64
    put({0x48, 0xB8});
    put64(reinterpret_cast<std::uintptr_t>(address));
  }
  template <typename T>
  void rdiTo(const T* address) {  // mov rdi, imm64
    put({0x48, 0xBF});
    put64(reinterpret_cast<std::uintptr_t>(address));
  }
  void load0(const double* address) {  // movsd xmm0, [rax]
    raxTo(address);
    put({0xF2, 0x0F, 0x10, 0x00});
  }
  void load1(const double* address) {  // movsd xmm1, [rax]
    raxTo(address);
    put({0xF2, 0x0F, 0x10, 0x08});
  }
  static std::uint32_t slot(int depth) { return static_cast<std::uint32_t>(-8 * (depth + 1)); }
  void spill0(int depth) {  // movsd [rbp + disp32], xmm0
    put({0xF2, 0x0F, 0x11, 0x85});
    put32(slot(depth));
  }
  void reload0(int depth) {  // movsd xmm0, [rbp + disp32]
    put({0xF2, 0x0F, 0x10, 0x85});
    put32(slot(depth));
  }
  void copy0To1() { put({0x66, 0x0F, 0x28, 0xC8}); }  // movapd xmm1, xmm0
  void add() { put({0xF2, 0x0F, 0x58, 0xC1}); }       // addsd xmm0, xmm1
  void sub() { put({0xF2, 0x0F, 0x5C, 0xC1}); }       // subsd xmm0, xmm1
  void mul() { put({0xF2, 0x0F, 0x59, 0xC1}); }       // mulsd xmm0, xmm1
  void flipSign(std::uint8_t how) {                   // the sign bit of xmm0: btr (clear) or btc (flip)
    put({0x66, 0x48, 0x0F, 0x7E, 0xC0});              // movq rax, xmm0
    put({0x48, 0x0F, 0xBA, how, 0x3F});               // bt? rax, 63
    put({0x66, 0x48, 0x0F, 0x6E, 0xC0});              // movq xmm0, rax
  }
  void callRax() { put({0xFF, 0xD0}); }
  void zero2() { put({0x66, 0x0F, 0x57, 0xD2}); }  // xorpd xmm2, xmm2
  // A forward jump (0F op rel32) whose target is set by land().
  std::size_t jump(std::uint8_t op) {
    if (op == 0xE9) put({0xE9});
    else put({0x0F, op});
    const std::size_t at = bytes.size();
    put32(0);
    return at;
  }
  void land(std::size_t at) {
    const auto rel = static_cast<std::int32_t>(static_cast<std::int64_t>(bytes.size()) - static_cast<std::int64_t>(at + 4));
    std::memcpy(bytes.data() + at, &rel, 4);
  }
  // A value that is not finite fails: x - x is a NaN only for an infinity or
  // a NaN, and a NaN compares unordered. The jump goes to the one failure
  // call at the end, patched there.
  void checkFinite() {
    put({0x66, 0x0F, 0x28, 0xD0});  // movapd xmm2, xmm0
    put({0xF2, 0x0F, 0x5C, 0xD2});  // subsd xmm2, xmm2
    put({0x66, 0x0F, 0x2E, 0xD2});  // ucomisd xmm2, xmm2
    put({0x0F, 0x8A});              // jp rel32
    failJumps.push_back(bytes.size());
    put32(0);
  }
  std::vector<std::size_t> failJumps;
};

class Generator {
 public:
  Emitter e;
  int deepest = 0;

  // The node's value into xmm0. depth: the spill slots in use.
  void value(const FastNode& n, int depth) {
    if (n.leaf) {
      e.load0(n.a);
      return;
    }
    const int count = fastOperandCount(n.op);
    if (count >= 1) operand(n.a, n.na, depth);
    if (count == 2) {
      if (!n.nb) {
        e.load1(n.b);
      } else {
        e.spill0(depth);
        deepest = std::max(deepest, depth + 1);
        value(*n.nb, depth + 1);
        e.copy0To1();
        e.reload0(depth);
      }
    }
    operation(n);
  }

 private:
  void operand(const double* address, const FastNode* node, int depth) {
    if (node) value(*node, depth);
    else e.load0(address);
  }

  void operation(const FastNode& n) {
    using enum FastOp;
    switch (n.op) {
      case Add: e.add(); return e.checkFinite();
      case Sub: e.sub(); return e.checkFinite();
      case Mul: e.mul(); return e.checkFinite();
      case Square: e.copy0To1(); e.mul(); return e.checkFinite();
      case AddK: e.load1(&n.k); e.add(); return e.checkFinite();
      case SubK: e.load1(&n.k); e.sub(); return e.checkFinite();
      case MulK: e.load1(&n.k); e.mul(); return e.checkFinite();
      case KSub: e.copy0To1(); e.load0(&n.k); e.sub(); return e.checkFinite();
      case Neg: return e.flipSign(0xF8);  // btc
      case Abs: return e.flipSign(0xF0);  // btr
      case Call0:
      case Call1:
      case Call2:
        // The library's own numeric form: the library in rdi, the operands
        // where they already are.
        e.rdiTo(n.library);
        e.raxTo(reinterpret_cast<const void*>(n.function));
        return e.callRax();
      case Div: return divide(n);
      case DivK: e.load1(&n.k); return divide(n);
      case KDiv: e.copy0To1(); e.load0(&n.k); return divide(n);
      case Sqr: {
        // Below zero (or a NaN) the routine fails as the tree does.
        e.zero2();
        e.put({0x66, 0x0F, 0x2E, 0xC2});  // ucomisd xmm0, xmm2
        const std::size_t fails = e.jump(0x82);  // jb
        e.put({0xF2, 0x0F, 0x51, 0xC0});  // sqrtsd xmm0, xmm0
        const std::size_t done = e.jump(0xE9);
        e.land(fails);
        helper(n);
        return e.land(done);
      }
      case Log: {
        e.zero2();
        e.put({0x66, 0x0F, 0x2E, 0xC2});  // ucomisd xmm0, xmm2
        const std::size_t fails = e.jump(0x86);  // jbe: not above zero, or a NaN
        mathCall(static_cast<double (*)(double)>(&std::log), false);
        const std::size_t done = e.jump(0xE9);
        e.land(fails);
        helper(n);
        return e.land(done);
      }
      case Sin: return mathCall(static_cast<double (*)(double)>(&std::sin), true);
      case Cos: return mathCall(static_cast<double (*)(double)>(&std::cos), true);
      case Tan: return mathCall(static_cast<double (*)(double)>(&std::tan), true);
      case Exp: return mathCall(static_cast<double (*)(double)>(&std::exp), true);
      case Atn: return mathCall(static_cast<double (*)(double)>(&std::atan), false);
      default: return helper(n);
    }
  }

  // The tree's own routine for the operation: a, b and the node.
  void helper(const FastNode& n) {
    e.rdiTo(&n);
    e.raxTo(reinterpret_cast<const void*>(fastOperation(n.op)));
    e.callRax();
  }

  // xmm0 / xmm1; a zero divisor (or a NaN) goes to the routine, which fails.
  void divide(const FastNode& n) {
    e.zero2();
    e.put({0x66, 0x0F, 0x2E, 0xCA});  // ucomisd xmm1, xmm2
    const std::size_t fails = e.jump(0x84);  // je: zero, or unordered
    e.put({0xF2, 0x0F, 0x5E, 0xC1});  // divsd xmm0, xmm1
    e.checkFinite();
    const std::size_t done = e.jump(0xE9);
    e.land(fails);
    if (n.op == FastOp::KDiv) e.put({0x66, 0x0F, 0x28, 0xC1});  // movapd xmm0, xmm1: the routine takes the operand
    helper(n);
    e.land(done);
  }

  void mathCall(double (*f)(double), bool checked) {
    e.raxTo(reinterpret_cast<const void*>(f));
    e.callRax();
    if (checked) e.checkFinite();
  }
};

// The frame description: one CIE (return address at the call's CFA - 8),
// one FDE for the code (push rbp, mov rbp, rsp: from there the CFA is
// rbp + 16 and rbp is saved at CFA - 16), and the zero that ends the run.
std::vector<std::uint8_t> frameDescription(std::uintptr_t code, std::size_t codeSize) {
  std::vector<std::uint8_t> d;
  auto put32 = [&](std::uint32_t v) {
    for (int i = 0; i < 4; ++i) d.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
  };
  auto put64 = [&](std::uint64_t v) {
    for (int i = 0; i < 8; ++i) d.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
  };
  auto pad = [&](std::size_t start) {  // records are whole multiples of 8 bytes
    while ((d.size() - start) % 8 != 0) d.push_back(0);  // DW_CFA_nop
  };
  auto setLength = [&](std::size_t start) {
    const auto length = static_cast<std::uint32_t>(d.size() - start - 4);
    std::memcpy(d.data() + start, &length, 4);
  };
  const std::size_t cie = d.size();
  put32(0);  // length, set below
  put32(0);  // CIE id
  d.push_back(1);  // version
  for (std::uint8_t c : {'z', 'R', '\0'}) d.push_back(c);
  d.push_back(1);     // code alignment
  d.push_back(0x78);  // data alignment -8
  d.push_back(16);    // return address register
  d.push_back(1);     // augmentation data: one byte
  d.push_back(0x00);  // addresses are absolute, 8 bytes
  for (std::uint8_t c : {0x0C, 0x07, 0x08}) d.push_back(c);  // CFA = rsp + 8
  for (std::uint8_t c : {0x90, 0x01}) d.push_back(c);        // return address at CFA - 8
  pad(cie);
  setLength(cie);
  const std::size_t fde = d.size();
  put32(0);  // length, set below
  put32(static_cast<std::uint32_t>(d.size() - cie));  // back to the CIE
  put64(code);
  put64(codeSize);
  d.push_back(0);                   // no augmentation data
  // After push rbp: CFA = rsp + 16, rbp at CFA - 16; after mov rbp, rsp:
  // CFA = rbp + 16.
  for (std::uint8_t c : {0x41, 0x0E, 0x10, 0x86, 0x02, 0x43, 0x0D, 0x06}) d.push_back(c);
  pad(fde);
  setLength(fde);
  put32(0);  // the end
  return d;
}

struct Mapping {
  void* base;
  std::size_t size;
  void* frames;
  ~Mapping() {
    __deregister_frame(frames);
    munmap(base, size);
  }
};

}  // namespace

NativeCode buildNativeCode(const FastNode& root) {
  Generator g;
  Emitter& e = g.e;
  e.put({0x55});              // push rbp
  e.put({0x48, 0x89, 0xE5});  // mov rbp, rsp
  e.put({0x48, 0x81, 0xEC});  // sub rsp, imm32: the spill slots, set below
  const std::size_t frameSize = e.bytes.size();
  e.put32(0);
  g.value(root, 0);
  e.put({0xC9, 0xC3});  // leave, ret
  const std::size_t failAt = e.bytes.size();
  e.raxTo(reinterpret_cast<const void*>(&raiseOverflow));
  e.callRax();
  e.put({0x0F, 0x0B});  // ud2: raiseOverflow does not come back
  const auto frame = static_cast<std::uint32_t>((g.deepest * 8 + 15) / 16 * 16);
  std::memcpy(e.bytes.data() + frameSize, &frame, 4);
  for (std::size_t at : e.failJumps) {
    const auto rel = static_cast<std::int32_t>(static_cast<std::int64_t>(failAt) - static_cast<std::int64_t>(at + 4));
    std::memcpy(e.bytes.data() + at, &rel, 4);
  }

  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const std::size_t codeSize = (e.bytes.size() + 15) / 16 * 16;
  const std::size_t frameBytes = frameDescription(0, 0).size();
  const std::size_t size = (codeSize + frameBytes + page - 1) / page * page;
  void* base = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (base == MAP_FAILED) return {};
  auto* bytes = static_cast<std::uint8_t*>(base);
  std::memcpy(bytes, e.bytes.data(), e.bytes.size());
  const std::vector<std::uint8_t> frames = frameDescription(reinterpret_cast<std::uintptr_t>(bytes), e.bytes.size());
  std::memcpy(bytes + codeSize, frames.data(), frames.size());
  if (mprotect(base, size, PROT_READ | PROT_EXEC) != 0) {
    munmap(base, size);
    return {};
  }
  __register_frame(bytes + codeSize);
  NativeCode code;
  code.memory = std::shared_ptr<const Mapping>(new Mapping{base, size, bytes + codeSize});
  code.run = reinterpret_cast<double (*)()>(base);
  return code;
}

#else

NativeCode buildNativeCode(const FastNode&) { return {}; }

#endif
