#ifndef VEXA_DETAIL_FOR_EACH_H
#define VEXA_DETAIL_FOR_EACH_H

// VEXA_DETAIL_FOR_EACH(f, context, a, b, ...) gives f(context, a) f(context, b) ... for up to 1000 arguments.
//
// The preprocessor expands no macro inside itself, so each step leaves the next one unfinished, and EVAL scans the
// whole again often enough to finish it. Scans beyond the last step cost as much: a thousand for each of 50 classes
// take 2 s. So a list is scanned about as often as it is long, 64 or 1000 times, and one of up to 16 not at all.
//
// An argument list ends at the marker, whose expansion turns the next step into END.

#define VEXA_DETAIL_EVAL0(...) __VA_ARGS__
#define VEXA_DETAIL_EVAL1(...) VEXA_DETAIL_EVAL0(VEXA_DETAIL_EVAL0(VEXA_DETAIL_EVAL0(VEXA_DETAIL_EVAL0(__VA_ARGS__))))
#define VEXA_DETAIL_EVAL16(...) VEXA_DETAIL_EVAL1(VEXA_DETAIL_EVAL1(VEXA_DETAIL_EVAL1(VEXA_DETAIL_EVAL1(__VA_ARGS__))))
#define VEXA_DETAIL_EVAL64(...)                                                                                        \
    VEXA_DETAIL_EVAL16(VEXA_DETAIL_EVAL16(VEXA_DETAIL_EVAL16(VEXA_DETAIL_EVAL16(__VA_ARGS__))))
#define VEXA_DETAIL_EVAL256(...)                                                                                       \
    VEXA_DETAIL_EVAL64(VEXA_DETAIL_EVAL64(VEXA_DETAIL_EVAL64(VEXA_DETAIL_EVAL64(__VA_ARGS__))))
#define VEXA_DETAIL_EVAL1000(...)                                                                                      \
    VEXA_DETAIL_EVAL256(VEXA_DETAIL_EVAL256(VEXA_DETAIL_EVAL256(VEXA_DETAIL_EVAL256(__VA_ARGS__))))

// IF_MARKER gives its second argument when the first is the marker, else its third.
#define VEXA_DETAIL_MARKER ()()()
#define VEXA_DETAIL_MARK2() 0, 0
#define VEXA_DETAIL_MARK1(...) VEXA_DETAIL_MARK2
#define VEXA_DETAIL_MARK(...) VEXA_DETAIL_MARK1
#define VEXA_DETAIL_THIRD(first, second, third, ...) third
#define VEXA_DETAIL_THIRD_OF(probe, then, otherwise) VEXA_DETAIL_THIRD(probe, then, otherwise, 0)
#define VEXA_DETAIL_IF_MARKER(item, then, otherwise) VEXA_DETAIL_THIRD_OF(VEXA_DETAIL_MARK item, then, otherwise)

#define VEXA_DETAIL_END(...)
#define VEXA_DETAIL_NOTHING
#define VEXA_DETAIL_STEP_A(f, context, item, peek, ...)                                                                \
    f(context, item) VEXA_DETAIL_IF_MARKER(peek, VEXA_DETAIL_END, VEXA_DETAIL_STEP_B)                                  \
        VEXA_DETAIL_NOTHING(f, context, peek, __VA_ARGS__)
#define VEXA_DETAIL_STEP_B(f, context, item, peek, ...)                                                                \
    f(context, item) VEXA_DETAIL_IF_MARKER(peek, VEXA_DETAIL_END, VEXA_DETAIL_STEP_A)                                  \
        VEXA_DETAIL_NOTHING(f, context, peek, __VA_ARGS__)

// What stands at the 17th and at the 65th place: the marker, if the list is no longer than 16 or 64.
#define VEXA_DETAIL_4_MARKERS VEXA_DETAIL_MARKER, VEXA_DETAIL_MARKER, VEXA_DETAIL_MARKER, VEXA_DETAIL_MARKER
#define VEXA_DETAIL_16_MARKERS                                                                                         \
    VEXA_DETAIL_4_MARKERS, VEXA_DETAIL_4_MARKERS, VEXA_DETAIL_4_MARKERS, VEXA_DETAIL_4_MARKERS
#define VEXA_DETAIL_17TH_OF(a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, seventeenth, ...) seventeenth
#define VEXA_DETAIL_BEHIND_16(a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, ...) __VA_ARGS__
#define VEXA_DETAIL_APPLY(macro, ...) macro(__VA_ARGS__)
#define VEXA_DETAIL_17TH(...) VEXA_DETAIL_APPLY(VEXA_DETAIL_17TH_OF, __VA_ARGS__, VEXA_DETAIL_16_MARKERS, 0)
#define VEXA_DETAIL_65TH(...)                                                                                          \
    VEXA_DETAIL_APPLY(                                                                                                 \
        VEXA_DETAIL_17TH_OF,                                                                                           \
        VEXA_DETAIL_APPLY(VEXA_DETAIL_BEHIND_16,                                                                       \
                          VEXA_DETAIL_APPLY(VEXA_DETAIL_BEHIND_16,                                                     \
                                            VEXA_DETAIL_APPLY(VEXA_DETAIL_BEHIND_16, __VA_ARGS__,                      \
                                                              VEXA_DETAIL_16_MARKERS, VEXA_DETAIL_16_MARKERS,          \
                                                              VEXA_DETAIL_16_MARKERS, VEXA_DETAIL_16_MARKERS, 0))))

// A list of up to 16, which nearly all are, is written out: it costs a tenth of the scans.
#define VEXA_DETAIL_EACH_1(f, context, item) f(context, item)
#define VEXA_DETAIL_EACH_2(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_1(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_3(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_2(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_4(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_3(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_5(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_4(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_6(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_5(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_7(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_6(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_8(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_7(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_9(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_8(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_10(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_9(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_11(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_10(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_12(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_11(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_13(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_12(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_14(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_13(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_15(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_14(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_16(f, context, item, ...) f(context, item) VEXA_DETAIL_EACH_15(f, context, __VA_ARGS__)
#define VEXA_DETAIL_EACH_FOR(...)                                                                                      \
    VEXA_DETAIL_APPLY(VEXA_DETAIL_17TH_OF, __VA_ARGS__, VEXA_DETAIL_EACH_16, VEXA_DETAIL_EACH_15, VEXA_DETAIL_EACH_14, \
                      VEXA_DETAIL_EACH_13, VEXA_DETAIL_EACH_12, VEXA_DETAIL_EACH_11, VEXA_DETAIL_EACH_10,              \
                      VEXA_DETAIL_EACH_9, VEXA_DETAIL_EACH_8, VEXA_DETAIL_EACH_7, VEXA_DETAIL_EACH_6,                  \
                      VEXA_DETAIL_EACH_5, VEXA_DETAIL_EACH_4, VEXA_DETAIL_EACH_3, VEXA_DETAIL_EACH_2,                  \
                      VEXA_DETAIL_EACH_1, 0)

#define VEXA_DETAIL_EVAL_FOR(...)                                                                                      \
    VEXA_DETAIL_IF_MARKER(VEXA_DETAIL_65TH(__VA_ARGS__), VEXA_DETAIL_EVAL64, VEXA_DETAIL_EVAL1000)
#define VEXA_DETAIL_EACH_OF_MANY(f, context, ...)                                                                      \
    VEXA_DETAIL_APPLY(                                                                                                 \
        VEXA_DETAIL_EVAL_FOR(__VA_ARGS__),                                                                             \
        VEXA_DETAIL_STEP_A(f, context, __VA_ARGS__, VEXA_DETAIL_MARKER, VEXA_DETAIL_MARKER, VEXA_DETAIL_MARKER, 0))
#define VEXA_DETAIL_FOR_EACH(f, context, ...)                                                                          \
    VEXA_DETAIL_IF_MARKER(VEXA_DETAIL_17TH(__VA_ARGS__), VEXA_DETAIL_EACH_FOR(__VA_ARGS__), VEXA_DETAIL_EACH_OF_MANY)  \
    (f, context, __VA_ARGS__)

#endif
