#ifndef VEXA_DETAIL_FOR_EACH_H
#define VEXA_DETAIL_FOR_EACH_H

// VEXA_DETAIL_FOR_EACH(f, context, a, b, ...) gives f(context, a) f(context, b) ... for up to 1000 arguments.
//
// The preprocessor expands no macro inside itself, so each step leaves the next one unfinished, and EVAL scans the whole
// again often enough to finish it. An argument list ends at the marker, whose expansion turns the next step into END.

#define VEXA_DETAIL_EVAL0(...) __VA_ARGS__
#define VEXA_DETAIL_EVAL1(...) VEXA_DETAIL_EVAL0(VEXA_DETAIL_EVAL0(VEXA_DETAIL_EVAL0(VEXA_DETAIL_EVAL0(__VA_ARGS__))))
#define VEXA_DETAIL_EVAL2(...) VEXA_DETAIL_EVAL1(VEXA_DETAIL_EVAL1(VEXA_DETAIL_EVAL1(VEXA_DETAIL_EVAL1(__VA_ARGS__))))
#define VEXA_DETAIL_EVAL3(...) VEXA_DETAIL_EVAL2(VEXA_DETAIL_EVAL2(VEXA_DETAIL_EVAL2(VEXA_DETAIL_EVAL2(__VA_ARGS__))))
#define VEXA_DETAIL_EVAL4(...) VEXA_DETAIL_EVAL3(VEXA_DETAIL_EVAL3(VEXA_DETAIL_EVAL3(VEXA_DETAIL_EVAL3(__VA_ARGS__))))
#define VEXA_DETAIL_EVAL(...) VEXA_DETAIL_EVAL4(VEXA_DETAIL_EVAL4(VEXA_DETAIL_EVAL4(VEXA_DETAIL_EVAL4(__VA_ARGS__))))

#define VEXA_DETAIL_END(...)
#define VEXA_DETAIL_NOTHING
#define VEXA_DETAIL_MARK2() 0, VEXA_DETAIL_END
#define VEXA_DETAIL_MARK1(...) VEXA_DETAIL_MARK2
#define VEXA_DETAIL_MARK(...) VEXA_DETAIL_MARK1
#define VEXA_DETAIL_SECOND(first, second, ...) second VEXA_DETAIL_NOTHING
#define VEXA_DETAIL_UNLESS_END_OF(probe, next) VEXA_DETAIL_SECOND(probe, next, 0)
#define VEXA_DETAIL_UNLESS_END(item, next) VEXA_DETAIL_UNLESS_END_OF(VEXA_DETAIL_MARK item, next)

#define VEXA_DETAIL_STEP_A(f, context, item, peek, ...)                                                               \
    f(context, item) VEXA_DETAIL_UNLESS_END(peek, VEXA_DETAIL_STEP_B)(f, context, peek, __VA_ARGS__)
#define VEXA_DETAIL_STEP_B(f, context, item, peek, ...)                                                               \
    f(context, item) VEXA_DETAIL_UNLESS_END(peek, VEXA_DETAIL_STEP_A)(f, context, peek, __VA_ARGS__)

#define VEXA_DETAIL_FOR_EACH(f, context, ...)                                                                         \
    VEXA_DETAIL_EVAL(VEXA_DETAIL_STEP_A(f, context, __VA_ARGS__, ()()(), ()()(), ()()(), 0))

#endif
