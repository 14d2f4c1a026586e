#include <Orvex/events/SoKeyboardEvent.h>

#include <cstring>

namespace {

bool isKeyEvent(const SoEvent* e, SoKeyboardEvent::Keys whichKey, SoButtonEvent::States state) {
  if (!e || !e->isOfType(SoKeyboardEvent::getClassTypeId())) return false;
  auto* k = static_cast<const SoKeyboardEvent*>(e);
  return k->getState() == state && (whichKey == SoKeyboardEvent::ANY || k->getKey() == whichKey);
}

// The US layout's shifted counterparts of the unshifted ASCII keys.
char shifted(char c) {
  static const char plain[] = "0123456789',-./;=[\\]`";
  static const char upper[] = ")!@#$%^&*(\"<_>?:+{|}~";
  if (c >= 'a' && c <= 'z') return static_cast<char>(c - 'a' + 'A');
  if (const char* p = std::strchr(plain, c)) return upper[p - plain];
  return c;
}

}  // namespace

bool SoKeyboardEvent::isKeyPressEvent(const SoEvent* e, Keys whichKey) { return isKeyEvent(e, whichKey, DOWN); }

bool SoKeyboardEvent::isKeyReleaseEvent(const SoEvent* e, Keys whichKey) { return isKeyEvent(e, whichKey, UP); }

char SoKeyboardEvent::getPrintableCharacter() const {
  const int key = m_key;
  // Keys whose value is the ASCII code of the character they type.
  if (key >= 0x20 && key <= 0x7e) {
    const char c = static_cast<char>(key);
    return wasShiftDown() ? shifted(c) : c;
  }
  if (key >= PAD0 && key <= PAD9) return static_cast<char>('0' + (key - PAD0));
  switch (m_key) {
    case PADADD: return '+';
    case PADSUBTRACT: return '-';
    case PADMULTIPLY: return '*';
    case PADDIVIDE: return '/';
    case PADPERIOD: return '.';
    case PADSPACE: return ' ';
    case TAB:
    case PADTAB: return '\t';
    case RETURN:
    case ENTER: return '\n';
    default: return '\0';
  }
}
