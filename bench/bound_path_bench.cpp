// A bound path of depth 3 against a function that follows the same members by hand and is not inlined.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include <vexa/access.h>

namespace paths {

struct Address {
    std::string city = "Bonn";
    int zip = 53111;
};
VEXA_DESCRIBE(Address, city, zip)
struct Customer {
    std::string name = "Ann";
    std::unique_ptr<Address> address = std::make_unique<Address>();
};
VEXA_DESCRIBE(Customer, name, address)
struct Item {
    std::string article = "pen";
    double price = 2.5;
};
VEXA_DESCRIBE(Item, article, price)
struct Order {
    long id = 1;
    Customer customer;
    std::vector<Item> items{3};
};
VEXA_DESCRIBE(Order, id, customer, items)

namespace {

constexpr std::size_t COUNT = 1000;

const std::vector<Order>& Orders()
{
    static const std::vector<Order> orders(COUNT);
    return orders;
}

__attribute__((noinline)) int ZipOf(const Order& order) { return order.customer.address->zip; }
__attribute__((noinline)) double PriceOf(const Order& order) { return order.items[1].price; }
__attribute__((noinline)) double SumOf(const Order& order)
{
    double sum = 0;
    for (const Item& item : order.items)
        sum += item.price;
    return sum;
}

template<class Value>
void Measure(benchmark::State& state, double expected, Value value)
{
    const std::vector<Order>& orders = Orders();
    double sum = 0;
    for (auto _ : state) {
        sum = 0;
        for (const Order& order : orders)
            sum += static_cast<double>(value(order));
        benchmark::DoNotOptimize(sum);
    }
    if (sum != expected * static_cast<double>(COUNT)) state.SkipWithError("another sum");
    state.SetItemsProcessed(static_cast<std::int64_t>(COUNT) * state.iterations());
}

void MemberByHand(benchmark::State& state) { Measure(state, 53111, &ZipOf); }
void MemberByPath(benchmark::State& state)
{
    const vexa::CBoundPath path(vexa::ClassInforOf<Order>(), "customer.address.zip");
    Measure(state, 53111, [&path](const Order& order) { return path.Get<int>(order).value_or(0); });
}
void ElementByHand(benchmark::State& state) { Measure(state, 2.5, &PriceOf); }
void ElementByPath(benchmark::State& state)
{
    const vexa::CBoundPath path(vexa::ClassInforOf<Order>(), "items[1].price");
    Measure(state, 2.5, [&path](const Order& order) { return path.Get<double>(order).value_or(0); });
}
void AllByHand(benchmark::State& state) { Measure(state, 7.5, &SumOf); }
void AllByPath(benchmark::State& state)
{
    const vexa::CBoundPath path(vexa::ClassInforOf<Order>(), "items[*].price");
    Measure(state, 7.5, [&path](const Order& order) {
        double sum = 0;
        path.ForEach(order, [&sum](const vexa::CConstRefrence& price) { sum += price.AsStdBasicType().As_double(); });
        return sum;
    });
}
BENCHMARK(MemberByPath)->Name("BoundPath/library");
BENCHMARK(MemberByHand)->Name("BoundPath/hand");
BENCHMARK(ElementByPath)->Name("BoundElement/library");
BENCHMARK(ElementByHand)->Name("BoundElement/hand");
BENCHMARK(AllByPath)->Name("BoundAll/library");
BENCHMARK(AllByHand)->Name("BoundAll/hand");

} // namespace
} // namespace paths
