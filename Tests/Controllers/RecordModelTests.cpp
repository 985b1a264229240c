#include <Controllers/RecordModel.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSignalSpy>
#include <random>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Fruit {
    QString name;
    int price = 0;
    QString colour = {};
};

using Basket = std::vector<Fruit>;

constexpr int nameRole = Qt::UserRole;
constexpr int priceRole = Qt::UserRole + 1;

class RecordModelTest : public testing::Test {
  protected:
    RecordModelTest() {
        const auto note = [this](const char* what) {
            return [this, what](const QModelIndex&, int first, int last) {
                steps.push_back(what + (" " + std::to_string(first)) + "-" + std::to_string(last));
            };
        };
        QObject::connect(&model, &ListModel::rowsRemoved, note("remove"));
        QObject::connect(&model, &ListModel::rowsInserted, note("insert"));
        QObject::connect(&model, &ListModel::rowsMoved,
                         [this](const QModelIndex&, int first, int, const QModelIndex&, int to) {
                             steps.push_back("move " + std::to_string(first) + " before " +
                                             std::to_string(to));
                         });
        QObject::connect(&model, &ListModel::modelReset, [this] { steps.emplace_back("reset"); });
        QObject::connect(&model, &ListModel::dataChanged,
                         [this](const QModelIndex& first, const QModelIndex&, const auto& roles) {
                             for (const int role : roles) {
                                 steps.push_back("change " + std::to_string(first.row()) + " " +
                                                 model.roleNames()[role].toStdString());
                             }
                         });
    }

    /// The steps by which the model becomes this list.
    std::vector<std::string> update(const Basket& basket) {
        steps.clear();
        model.update(basket);
        return steps;
    }
    void expectShown(const Basket& basket) {
        ASSERT_EQ(model.count(), static_cast<int>(basket.size()));
        ASSERT_EQ(model.rowCount(), model.count());
        for (int row = 0; row < model.count(); ++row) {
            const Fruit& fruit = basket[static_cast<std::size_t>(row)];
            EXPECT_EQ(model.data(model.index(row), nameRole), fruit.name);
            EXPECT_EQ(model.data(model.index(row), priceRole), fruit.price);
        }
    }
    static Basket named(const char* letters) {
        Basket basket;
        for (const char* letter = letters; *letter != '\0'; ++letter) {
            basket.push_back({QString(QLatin1Char(*letter))});
        }
        return basket;
    }

    RecordModel<Fruit> model{{{"name", [](const Fruit& fruit) { return fruit.name; }},
                              {"price", [](const Fruit& fruit) { return fruit.price; }}},
                             [](const Fruit& fruit) { return fruit.name; }};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    std::vector<std::string> steps;
};

TEST_F(RecordModelTest, becomesALaterListInAsFewStepsAsThereAre) {
    EXPECT_THAT(update(named("abcdef")), ElementsAre("insert 0-5"));
    EXPECT_THAT(update(named("abcdef")), IsEmpty());
    EXPECT_THAT(update(named("bcdefa")), ElementsAre("move 0 before 6"));
    EXPECT_THAT(update(named("abcdef")), ElementsAre("move 5 before 0"));
    EXPECT_THAT(update(named("adef")), ElementsAre("remove 1-2"));
    EXPECT_THAT(update(named("xadyzef")), ElementsAre("insert 0-0", "insert 3-4"));
    EXPECT_THAT(update(named("efad")),
                ElementsAre("remove 3-4", "remove 0-0", "move 0 before 4", "move 0 before 4"));
    EXPECT_THAT(update({}), ElementsAre("remove 0-3"));
    EXPECT_THAT(update(named("aa")), ElementsAre("reset")) << "a key that stands twice is no key";
}

TEST_F(RecordModelTest, tellsOnlyOfRowsAndRolesThatChanged) {
    model.reset({{"apple", 3}, {"pear", 4}, {"plum", 5}});
    EXPECT_THAT(update({{"apple", 3}, {"pear", 7}, {"plum", 5}}), ElementsAre("change 1 price"));
    EXPECT_THAT(update({{"plum", 6}, {"apple", 3, "red"}, {"pear", 7}}),
                ElementsAre("move 2 before 0", "change 0 price"));
    EXPECT_EQ(model.records()[1].colour, "red") << "what no role shows is taken over as well";
}

TEST_F(RecordModelTest, changesRowsThatOtherRecordsTakeWhereThatIsWanted) {
    using Fruits = RecordModel<Fruit>;
    model.reset(named("abcdef"));
    steps.clear();
    const QSignalSpy changes(&model, &ListModel::dataChanged);
    for (const char* const letters : {"axydez", "axydzw"}) {
        model.update(named(letters), Fruits::Replacement::change);
        expectShown(named(letters));
    }
    EXPECT_EQ(changes.count(), 2) << "of two runs, once";
    EXPECT_THAT(steps, ElementsAre("remove 4-4", "insert 5-5"));
}

TEST_F(RecordModelTest, publishesItsLengthOnlyWhenThatChanges) {
    const QSignalSpy changes(&model, &ListModel::countChanged);
    model.reset(named("ab"));
    model.update(named("ba"));
    model.reset(named("cd"));
    EXPECT_EQ(changes.count(), 1);
    model.update(named("c"));
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(model.property("count"), 1);
}

TEST_F(RecordModelTest, keepsHoldOfItsRowsThroughRandomUpdates) {
    std::mt19937 random(20'260'728);
    const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
    for (int round = 0; round < 200; ++round) {
        Basket basket = model.records();
        for (int edits = below(12); edits > 0 && !basket.empty(); --edits) {
            basket.erase(basket.begin() + below(static_cast<int>(basket.size())));
        }
        if (round % 3 == 0) {
            std::shuffle(basket.begin(), basket.end(), random);
        }
        for (int edits = below(14); edits > 0; --edits) {
            const int place = below(static_cast<int>(basket.size()) + 1);
            basket.insert(basket.begin() + place, {QString::number(round * 100 + edits)});
        }
        for (Fruit& fruit : basket) {
            fruit.price = below(3);
        }
        std::vector<std::pair<QPersistentModelIndex, QString>> held;
        for (int row = 0; row < model.rowCount(); ++row) {
            held.emplace_back(model.index(row), model.records()[std::size_t(row)].name);
        }
        model.update(basket);
        expectShown(basket);
        for (const auto& [index, name] : held) {
            const bool stays = std::any_of(basket.begin(), basket.end(),
                                           [&](const Fruit& fruit) { return fruit.name == name; });
            ASSERT_EQ(index.isValid(), stays) << name.toStdString();
            EXPECT_EQ(index.data(nameRole), stays ? QVariant(name) : QVariant());
        }
    }
}

}
}
