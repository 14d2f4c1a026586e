#pragma once
// Memory lent to multiple-value fields through setValuesPointer, for lenders
// that must learn when a field stops using it (a block owned by a garbage
// collector, say, that must stay reachable exactly as long as the field reads
// and writes it).
//
// A field stops using lent memory when its values move into storage of its
// own (it grew beyond the block, or a read-only block was about to change),
// when other memory replaces the block, or when the field dies. The field
// then tells this registry, which calls the lender's function once.
//
// The registration lives beside the field rather than in it: few fields ever
// use lent memory, and the fields stay as small as they are.

class SoMField;

class SoMFieldLending {
 public:
  using ReleasedCB = void(void* closure);

  // Makes `field` use the `num` values at `data` (its setValuesPointer) and
  // calls `released(closure)` once, when the field stops using them. When
  // the field does not take the block (no values, or no memory) `released`
  // is called before this returns. A block lent earlier and still in use is
  // released first.
  template <class Field, class Value>
  static void lend(Field& field, int num, Value* data, ReleasedCB* released, void* closure) {
    field.setValuesPointer(num, data);
    if (num > 0 && data && field.getValues(0) == data)
      add(&field, released, closure);
    else
      released(closure);
  }

  // The closure of the lender whose memory `field` uses, when that lender
  // registered with `released`; null otherwise.
  static void* lenderOf(const SoMField* field, ReleasedCB* released);

  // Called by the fields whenever their values leave lent memory.
  static void fieldReleased(const SoMField* field);

 private:
  static void add(const SoMField* field, ReleasedCB* released, void* closure);
};
