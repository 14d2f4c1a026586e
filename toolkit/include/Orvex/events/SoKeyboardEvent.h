#pragma once
#include <Orvex/events/SoButtonEvent.h>

// A key of the keyboard pressed or released. Key values follow the X11
// keysym codes: letters are their lower-case ASCII codes, digits and
// punctuation their ASCII codes, the other keys 0xFFxx values.
class SoKeyboardEvent : public SoButtonEvent {
 public:
  enum Keys {
    ANY = 0,  // matches every key in the static tests below

    A = 0x61, B = 0x62, C = 0x63, D = 0x64, E = 0x65, F = 0x66, G = 0x67, H = 0x68, I = 0x69,
    J = 0x6a, K = 0x6b, L = 0x6c, M = 0x6d, N = 0x6e, O = 0x6f, P = 0x70, Q = 0x71, R = 0x72,
    S = 0x73, T = 0x74, U = 0x75, V = 0x76, W = 0x77, X = 0x78, Y = 0x79, Z = 0x7a,

    NUMBER0 = 0x30, NUMBER1 = 0x31, NUMBER2 = 0x32, NUMBER3 = 0x33, NUMBER4 = 0x34,
    NUMBER5 = 0x35, NUMBER6 = 0x36, NUMBER7 = 0x37, NUMBER8 = 0x38, NUMBER9 = 0x39,

    F1 = 0xffbe, F2 = 0xffbf, F3 = 0xffc0, F4 = 0xffc1, F5 = 0xffc2, F6 = 0xffc3,
    F7 = 0xffc4, F8 = 0xffc5, F9 = 0xffc6, F10 = 0xffc7, F11 = 0xffc8, F12 = 0xffc9,

    PAD0 = 0xffb0, PAD1 = 0xffb1, PAD2 = 0xffb2, PAD3 = 0xffb3, PAD4 = 0xffb4,
    PAD5 = 0xffb5, PAD6 = 0xffb6, PAD7 = 0xffb7, PAD8 = 0xffb8, PAD9 = 0xffb9,
    PADADD = 0xffab,
    PADSUBTRACT = 0xffad,
    PADMULTIPLY = 0xffaa,
    PADDIVIDE = 0xffaf,
    PADDELETE = 0xff9f,
    PADENTER = 0xff8d,
    PADF1 = 0xff91, PADF2 = 0xff92, PADF3 = 0xff93, PADF4 = 0xff94,
    PADINSERT = 0xff9e,
    PADPERIOD = 0xffae,
    PADSPACE = 0xff80,
    PADTAB = 0xff89,

    LEFTSHIFT = 0xffe1,
    RIGHTSHIFT = 0xffe2,
    LEFTCONTROL = 0xffe3,
    RIGHTCONTROL = 0xffe4,
    LEFTALT = 0xffe9,
    RIGHTALT = 0xffea,
    LEFTMETA = 0xffe7,
    RIGHTMETA = 0xffe8,
    CAPSLOCK = 0xffe5,
    SHIFTLOCK = 0xffe6,
    NUMLOCK = 0xff7f,
    SCROLLLOCK = 0xff14,

    HOME = 0xff50,
    END = 0xff57,
    LEFTARROW = 0xff51,
    UPARROW = 0xff52,
    RIGHTARROW = 0xff53,
    DOWNARROW = 0xff54,
    PAGEUP = 0xff55,
    PAGEDOWN = 0xff56,
    PRIOR = 0xff55,  // the same key as PAGEUP
    NEXT = 0xff56,   // the same key as PAGEDOWN
    PRINT = 0xff61,
    INSERT = 0xff63,
    PAUSE = 0xff13,

    BACKSPACE = 0xff08,
    TAB = 0xff09,
    RETURN = 0xff0d,
    ENTER = 0xff8d,  // the keypad's enter key, as PADENTER
    ESCAPE = 0xff1b,
    SPACE = 0x20,
    KEYDELETE = 0xffff,

    APOSTROPHE = 0x27,
    COMMA = 0x2c,
    MINUS = 0x2d,
    PERIOD = 0x2e,
    SLASH = 0x2f,
    SEMICOLON = 0x3b,
    EQUAL = 0x3d,
    BRACKETLEFT = 0x5b,
    BACKSLASH = 0x5c,
    BRACKETRIGHT = 0x5d,
    GRAVE = 0x60
  };

  SoKeyboardEvent();
  ~SoKeyboardEvent() override;

  static SoType getClassTypeId();
  SoType getTypeId() const override;
  static void initClass();

  void setKey(Keys key) { m_key = key; }
  Keys getKey() const { return m_key; }

  // True when `e` is a keyboard event of `whichKey` (any key for ANY) going
  // down, respectively up.
  static bool isKeyPressEvent(const SoEvent* e, Keys whichKey);
  static bool isKeyReleaseEvent(const SoEvent* e, Keys whichKey);

  // The character the key types on a US keyboard, taking the shift key of
  // the event into account ('a', 'A', '!', '\t', '7' for PAD7...), or '\0'
  // for keys that type nothing.
  char getPrintableCharacter() const;

 private:
  Keys m_key = ANY;
};
