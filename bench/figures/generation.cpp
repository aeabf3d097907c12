// Template generation of every type against a bare loop computing the same levels, once filling the
// same list type and once a plain vector.
#include "common.h"
#include "figuretable.h"

#include "helper.h"
#include "sequencebuilder.h"

#include <cmath>
#include <functional>
#include <vector>

using namespace tarn2::specific::orvo5000::programmer;

namespace figures {

namespace {

constexpr double kScale = 1000.0; // ticks per second at three time decimals
constexpr double kTwoPi = 6.283185307179586;

// One step of the plain-vector limit: what a ListData holds, without the list around it.
struct PlainStep
{
    double voltage;
    double current;
    double time;
};

struct PlainState
{
    bool on;
    double time;
};

// The bare loops restate the waves' formulas with the tick values of these templates written in,
// so that they compute exactly what the generators compute and nothing else. Each wave hands its
// steps to an inlined callback, so the loops stay as bare as hand-written ones.
ListTemplateParam listParam(ListTemplateType type)
{
    ListTemplateParam param;
    resetListTemplateParam(param, static_cast<unsigned char>(type));
    return param;
}

struct Sine
{
    static ListTemplateParam param(long n)
    {
        ListTemplateParam p = listParam(ListSine);
        p.period = n / 1000.0;
        p.interval = 0.001;
        return p;
    }
    template<typename Put> static void steps(long n, Put &&put)
    {
        const int period = static_cast<int>(n / 1000.0 * kScale + 0.5);
        for (long i = 0; i < n; ++i) {
            const double angle = static_cast<double>(i % period) * kTwoPi / period;
            put((std::sin(angle) + 1.0) / 2.0, 1.0);
        }
    }
};

struct Pulse
{
    static ListTemplateParam param(long n)
    {
        ListTemplateParam p = listParam(ListPulse);
        p.period = 0.002;
        p.width = 0.001;
        p.pulseCount = static_cast<int>(n / 2);
        return p;
    }
    template<typename Put> static void steps(long n, Put &&put)
    {
        for (long i = 0; i < n; ++i)
            put(i % 2 ? 0.0 : 1.0, 1.0);
    }
};

struct Ramp
{
    static ListTemplateParam param(long n)
    {
        ListTemplateParam p = listParam(ListRamp);
        p.period = n / 1000.0;
        p.interval = 0.001;
        return p;
    }
    template<typename Put> static void steps(long n, Put &&put)
    {
        const int period = static_cast<int>(n / 1000.0 * kScale + 0.5);
        const int peak = static_cast<int>(0.5 * period + 0.5);
        for (long i = 0; i < n; ++i) {
            const double t = static_cast<double>(i);
            put(i <= peak ? t / peak : 1.0 - (t - peak) / (period - peak), 1.0);
        }
    }
};

template<ListTemplateType Type, int Start, int End> struct Stair
{
    static ListTemplateParam param(long n)
    {
        ListTemplateParam p = listParam(Type);
        p.period = 2.0 * n / 1000.0;
        p.steps = static_cast<int>(n);
        return p;
    }
    template<typename Put> static void steps(long n, Put &&put)
    {
        const double start = Start;
        const double end = End;
        for (long i = 0; i < n; ++i)
            put(start + i * (end - start) / (n - 1), 2.0);
    }
};

struct StairUpDown
{
    static ListTemplateParam param(long n) { return Stair<ListStairUpDown, 0, 0>::param(n); }
    template<typename Put> static void steps(long n, Put &&put)
    {
        const long half = n / 2; // n is even here
        for (long i = 0; i < n; ++i) {
            put(i < half ? static_cast<double>(i) / (half - 1)
                         : 1.0 - static_cast<double>(1 + i - half) / half,
                2.0);
        }
    }
};

template<ListTemplateType Type> struct Exp
{
    static ListTemplateParam param(long n)
    {
        ListTemplateParam p = listParam(Type);
        p.interval = 0.001;
        p.expGroups = static_cast<int>(n);
        return p;
    }
    template<typename Put> static void steps(long n, Put &&put)
    {
        for (long i = 0; i < n; ++i) {
            const double e = std::exp(-5.0 * i / n);
            put(Type == ListExpFall ? e : 1.0 - e, 1.0);
        }
    }
};

DelayerTemplateParam delayerParam(DelayerTemplateType type, long n)
{
    DelayerTemplateParam param;
    resetDelayerTemplateParam(param, static_cast<unsigned char>(type));
    param.groups = static_cast<int>(n);
    return param;
}

struct FixTime
{
    static DelayerTemplateParam param(long n)
    {
        DelayerTemplateParam p = delayerParam(DelayerFixTime, n);
        p.offTime = 0.5;
        return p;
    }
    template<typename Put> static void steps(long n, Put &&put)
    {
        const double on = 1.0 * kScale;
        const double off = 0.5 * kScale;
        for (long i = 0; i < n; ++i)
            put(i % 2 == 0, i % 2 == 0 ? on : off);
    }
};

struct Increase
{
    static DelayerTemplateParam param(long n)
    {
        DelayerTemplateParam p = delayerParam(DelayerIncrease, n);
        p.incStep = 0.001;
        return p;
    }
    template<typename Put> static void steps(long n, Put &&put)
    {
        const double base = 1.0 * kScale;
        const double step = 0.001 * kScale;
        for (long i = 0; i < n; ++i)
            put(i % 2 == 0, base + static_cast<int>(i) * step);
    }
};

struct Decline
{
    static DelayerTemplateParam param(long n)
    {
        DelayerTemplateParam p = delayerParam(DelayerDecline, n);
        p.decBaseValue = (n + 1) / 1000.0;
        p.decStep = 0.001;
        return p;
    }
    template<typename Put> static void steps(long n, Put &&put)
    {
        const double base = (n + 1) / 1000.0 * kScale;
        const double step = 0.001 * kScale;
        for (long i = 0; i < n; ++i)
            put(i % 2 == 0, base - static_cast<int>(i) * step);
    }
};

// A List case: the template and the two bare loops, filling the same list type and a vector. The
// loops reserve room once and append once per step, as the builder must.
struct ListCase
{
    const char *name;
    std::function<ListTemplateParam(long)> param;
    std::function<QList<ListData>(long, double, double)> list;
    std::function<std::vector<PlainStep>(long, double, double)> vector;
};

template<typename Wave> ListCase listCase(const char *name)
{
    return {name,
            &Wave::param,
            [](long n, double low, double high) {
                QList<ListData> list;
                list.reserve(static_cast<int>(n));
                Wave::steps(n, [&](double level, double ticks) {
                    list.append(ListData(low + level * (high - low), 0.0, ticks / kScale));
                });
                return list;
            },
            [](long n, double low, double high) {
                std::vector<PlainStep> steps;
                steps.reserve(static_cast<std::size_t>(n));
                Wave::steps(n, [&](double level, double ticks) {
                    steps.push_back({low + level * (high - low), 0.0, ticks / kScale});
                });
                return steps;
            }};
}

struct DelayerCase
{
    const char *name;
    std::function<DelayerTemplateParam(long)> param;
    std::function<QList<DelayerData>(long)> list;
    std::function<std::vector<PlainState>(long)> vector;
};

template<typename Rule> DelayerCase delayerCase(const char *name)
{
    return {
        name,
        &Rule::param,
        [](long n) {
            QList<DelayerData> list;
            list.reserve(static_cast<int>(n));
            Rule::steps(
                n, [&](bool on, double ticks) { list.append(DelayerData(on, ticks / kScale)); });
            return list;
        },
        [](long n) {
            std::vector<PlainState> steps;
            steps.reserve(static_cast<std::size_t>(n));
            Rule::steps(n, [&](bool on, double ticks) { steps.push_back({on, ticks / kScale}); });
            return steps;
        }};
}

const std::vector<ListCase> &listCases()
{
    static const std::vector<ListCase> cases{
        listCase<Sine>("gen.list.sine"),
        listCase<Pulse>("gen.list.pulse"),
        listCase<Ramp>("gen.list.ramp"),
        listCase<Stair<ListStairUp, 0, 1>>("gen.list.stairup"),
        listCase<Stair<ListStairDown, 1, 0>>("gen.list.stairdown"),
        listCase<StairUpDown>("gen.list.stairupdown"),
        listCase<Exp<ListExpRise>>("gen.list.exprise"),
        listCase<Exp<ListExpFall>>("gen.list.expfall"),
    };
    return cases;
}

const std::vector<DelayerCase> &delayerCases()
{
    static const std::vector<DelayerCase> cases{
        delayerCase<FixTime>("gen.delayer.fixtime"),
        delayerCase<Increase>("gen.delayer.increase"),
        delayerCase<Decline>("gen.delayer.decline"),
    };
    return cases;
}

bool sameSteps(const QList<ListData> &a, const QList<ListData> &b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (a.at(i).voltage != b.at(i).voltage || a.at(i).current != b.at(i).current
            || a.at(i).time != b.at(i).time)
            return false;
    }
    return true;
}

bool sameSteps(const QList<DelayerData> &a, const QList<DelayerData> &b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (a.at(i).state != b.at(i).state || a.at(i).time != b.at(i).time)
            return false;
    }
    return true;
}

void listFigure(benchmark::State &state, const ListCase &c, bool againstVector)
{
    useBenchOption();
    const long n = state.range(0);
    const ListTemplateParam param = c.param(n);
    const double low = param.voltageMin;
    const double high = param.voltageMax;
    if (!sameSteps(make_list_wave(param), c.list(n, low, high))) {
        state.SkipWithError("the builder and the bare loop disagree");
        return;
    }
    const auto figure = [&] {
        keep(make_list_wave(param));
    };
    if (againstVector)
        measure(state, figure, [&] { keep(c.vector(n, low, high)); });
    else
        measure(
            state, figure, [&] { keep(c.list(n, low, high)); }, Goal{2.0, 0.0});
}

void delayerFigure(benchmark::State &state, const DelayerCase &c, bool againstVector)
{
    useBenchOption();
    const long n = state.range(0);
    const DelayerTemplateParam param = c.param(n);
    if (!sameSteps(make_delayer_wave(param), c.list(n))) {
        state.SkipWithError("the builder and the bare loop disagree");
        return;
    }
    const auto figure = [&] {
        keep(make_delayer_wave(param));
    };
    if (againstVector)
        measure(state, figure, [&] { keep(c.vector(n)); });
    else
        measure(
            state, figure, [&] { keep(c.list(n)); }, Goal{2.0, 0.0});
}

const bool registered = [] {
    static std::vector<std::string> names;
    for (const ListCase &c : listCases()) {
        registerSized(c.name, [&c](benchmark::State &s) { listFigure(s, c, false); });
        names.push_back(std::string(c.name) + ".vs_vector");
        registerSized(names.back().c_str(), [&c](benchmark::State &s) { listFigure(s, c, true); });
    }
    for (const DelayerCase &c : delayerCases()) {
        registerSized(c.name, [&c](benchmark::State &s) { delayerFigure(s, c, false); });
        names.push_back(std::string(c.name) + ".vs_vector");
        registerSized(names.back().c_str(),
                      [&c](benchmark::State &s) { delayerFigure(s, c, true); });
    }
    return true;
}();

} // namespace

} // namespace figures
