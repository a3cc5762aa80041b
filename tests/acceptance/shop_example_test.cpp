// A small application, written as the README shows it: describing its classes is all that it does.

#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/vexa.h>

namespace shop {

class Entity {
public:
    long id = 0;
};

struct Address {
    std::string city;
    std::string zip;
};

class Customer : public Entity {
public:
    std::string name;
    vexa::MayNull<int> age;
    Address address;
    std::vector<Address> previous;
    std::map<std::string, int> scores;
    std::unique_ptr<Customer> referrer;
    short kind = 0;
    union {
        int code;
        double rate;
    };

    void SetPassword(const std::string& text) { password = text; }

private:
    std::string password;
    VEXA_FRIEND(Customer);
};

VEXA_DESCRIBE(Entity, id)
VEXA_DESCRIBE(Address, city, zip)

VEXA_DESCRIBE_CLASS(Customer)
{
    about.Base<Entity>();
    about.Attrib("name", &Customer::name).ID(1);
    about.Attrib("age", &Customer::age).ID(2);
    about.Attrib("address", &Customer::address);
    about.Attrib("previous", &Customer::previous);
    about.Attrib("scores", &Customer::scores);
    about.Attrib("referrer", &Customer::referrer);
    about.Attrib("kind", &Customer::kind);
    about.Attrib("code", &Customer::code).ActiveWhen("kind", 0);
    about.Attrib("rate", &Customer::rate).ActiveWhen("kind", 1);
    about.Attrib("password", &Customer::password).Private().Masked();
}

} // namespace shop

namespace {

shop::Customer Ann()
{
    shop::Customer ann{};
    ann.id = 17;
    ann.name = "Ann";
    ann.age = 30;
    ann.address = {"Oslo", "0150"};
    ann.previous = {{"Bergen", "5003"}, {"Hamar", "2317"}};
    ann.scores = {{"golf", 72}, {"chess", 1800}};
    ann.referrer = std::make_unique<shop::Customer>();
    ann.referrer->name = "Bo";
    ann.kind = 1;
    ann.rate = 0.25;
    ann.SetPassword("secret");
    return ann;
}

constexpr char ANN_AS_JSON[] =
    R"({"id":17,"name":"Ann","age":30,"address":{"city":"Oslo","zip":"0150"},)"
    R"("previous":[{"city":"Bergen","zip":"5003"},{"city":"Hamar","zip":"2317"}],)"
    R"("scores":[{"first":"chess","second":1800},{"first":"golf","second":72}],)"
    R"("referrer":{"id":0,"name":"Bo","address":{"city":"","zip":""},"previous":[],"scores":[],"kind":0,"code":0,)"
    R"("password":""},"kind":1,"rate":0.250000,"password":"secret"})";

TEST(ShopExample, RendersACustomerAsText)
{
    EXPECT_EQ(
        vexa::AsString(Ann()),
        "\nid: 17\nname: Ann\nage: 30\naddress: \n  city: Oslo\n  zip: 0150"
        "\nprevious: \n  - city: Bergen\n    zip: 5003\n  - city: Hamar\n    zip: 2317"
        "\nscores: \n  - first: chess\n    second: 1800\n  - first: golf\n    second: 72"
        "\nreferrer: \n  id: 0\n  name: Bo\n  age: NULL\n  address: \n    city: \n    zip: \n  previous: \n  scores: "
        "\n  referrer: NULL\n  kind: 0\n  code: 0\n  password: ***"
        "\nkind: 1\nrate: 0.250000\npassword: ***");
}

TEST(ShopExample, RendersTypesBesideTheValues)
{
    shop::Customer bo{};
    bo.name = "Bo";
    EXPECT_EQ(vexa::AsString(bo, vexa::Enum::ASF_TYPE_AND_VALUE),
              "Customer: \n  long id: 0\n  std::string name: Bo\n  MayNull<int> age: NULL"
              "\n  Address address: \n    std::string city: \n    std::string zip: "
              "\n  std::vector<Address> previous: \n  std::map<std::pair> scores: \n  Customer* referrer: NULL"
              "\n  short kind: 0\n  int code: 0\n  std::string password: ***");
    EXPECT_EQ(vexa::AsString(bo, vexa::Enum::ASF_TYPE_ONLY), "Customer: ");
}

TEST(ShopExample, WritesAndReadsACustomerAsJson)
{
    const shop::Customer customer = Ann();
    std::string json;
    EXPECT_EQ(vexa::ToJson(json, customer), 0);
    EXPECT_EQ(json, ANN_AS_JSON);

    shop::Customer copy;
    ASSERT_EQ(vexa::FromJson(copy, R"({"kind":1,"name":"Cy","age":4,"rate":2})"), 0);
    EXPECT_EQ(copy.name, "Cy");
    EXPECT_TRUE(copy.age == 4);
    EXPECT_EQ(copy.rate, 2.0);
    EXPECT_TRUE(copy.previous.empty());
}

TEST(ShopExample, SaysInOneSentenceWhyATextCannotBeRead)
{
    shop::Customer customer;
    std::ostringstream errors;
    const int code = vexa::FromJson(customer, R"({"nmae":"Ann"})");
    if (code != 0) errors << vexa::JsonResultText(code) << '\n';
    EXPECT_EQ(code, 722);
    EXPECT_EQ(errors.str(), std::string(vexa::JsonResultText(722)) + '\n');
    EXPECT_EQ(errors.str().find('.'), errors.str().size() - 2) << "one sentence: " << errors.str();
}

TEST(ShopExample, FindsAnAttributeByItsPath)
{
    shop::Customer customer = Ann();
    const vexa::CRefrence ref = vexa::RefOf(customer);
    vexa::CConstRefrence city;
    ASSERT_TRUE(ref.AsClass().FindAttribByFlatName(city, "address.city"));
    EXPECT_EQ(city.AsStdBasicType().As_std_string(), "Oslo");
    EXPECT_EQ(city.Address, &customer.address.city);
    ASSERT_TRUE(ref.AsClass().FindAttribByFlatName(city, "address_zip"));
    EXPECT_EQ(city.AsStdBasicType().As_int(), 150);
}

TEST(ShopExample, FindsAnAttributeByItsNameAndID)
{
    const shop::Customer customer = Ann();
    vexa::CConstRefrence found;
    ASSERT_TRUE(vexa::RefOf(customer).AsClass().FindAttribByID(found, 2));
    EXPECT_EQ(found.AsStdBasicType().As_long(), 30);
    ASSERT_TRUE(vexa::RefOf(customer).AsClass().FindAttribByName(found, "id"));
    EXPECT_EQ(found.AsStdBasicType().As_std_string(), "17");
    EXPECT_FALSE(vexa::RefOf(customer).AsClass().FindAttribByName(found, "shoe size"));
}

TEST(ShopExample, GoesOverTheAttributes)
{
    shop::Customer customer = Ann();
    std::string seen;
    const vexa::CRefrence ref = vexa::RefOf(customer);
    for (const auto& attrib : ref.AsClass().Attribs())
        seen += attrib.Name() + ": " + attrib.Value().TypeName() + '\n';
    EXPECT_EQ(seen,
              "id: long\nname: std::string\nage: MayNull<int>\naddress: Address\nprevious: std::vector<Address>\n"
              "scores: std::map<std::pair>\nreferrer: Customer*\nkind: short\nrate: double\npassword: std::string\n");
}

TEST(ShopExample, GoesOverTheElements)
{
    shop::Customer customer = Ann();
    std::string cities;
    for (const vexa::CConstRefrence& element : vexa::RefOf(customer.previous).AsContainer()) {
        vexa::CConstRefrence city;
        ASSERT_TRUE(element.AsClass().FindAttribByName(city, "city"));
        cities += city.AsStdBasicType().As_std_string() + ' ';
    }
    EXPECT_EQ(cities, "Bergen Hamar ");
}

TEST(ShopExample, ChangesAValueByName)
{
    shop::Customer customer = Ann();
    vexa::CRefrence age;
    ASSERT_TRUE(vexa::RefOf(customer).AsClass().FindAttribByName(age, "age"));
    age.AsStdBasicType().ReadFrom(31L);
    EXPECT_TRUE(customer.age == 31);
    age.Clear();
    EXPECT_FALSE(customer.age.has_value());
}

TEST(ShopExample, HasDescriptorsForItsTypes)
{
    const vexa::CClassInfor& infor = vexa::ClassInforOf<shop::Customer>();
    EXPECT_EQ(infor.Name, "Customer");
    EXPECT_EQ(infor.Size, sizeof(shop::Customer));
    EXPECT_EQ(infor.AttribList.size(), 11U);
    const vexa::CGnlTypeInfor& type = vexa::TypeInforOf<std::vector<int>>();
    EXPECT_EQ(type.TypeName(), "std::vector<int>");
}

} // namespace
