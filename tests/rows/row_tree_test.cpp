#include "rows/row_tree.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace tessera {
namespace {

// The same tree with a node a row, asked by walking.
struct Model {
  struct Node {
    std::int32_t level = 0;
    std::int32_t parent = 0;
    std::vector<std::int32_t> children;
    bool collapsed = false;
  };
  std::vector<Node> nodes{{}};  // by row; 0 is the root

  Model(const std::vector<std::int32_t>& levels, Outline::Parents parents, bool expanded)
      : nodes(levels.size() + 1) {
    std::vector<std::int32_t> path{0};
    const auto count = static_cast<std::int32_t>(levels.size());
    const bool first = parents == Outline::Parents::First;
    for (std::int32_t step = 1; step <= count; ++step) {
      const std::int32_t row = first ? step : count + 1 - step;
      Node& node = at(row);
      node.level = levels[static_cast<std::size_t>(row) - 1];
      node.collapsed = !expanded;
      if (node.level == Outline::noLevel) continue;
      path.resize(static_cast<std::size_t>(node.level));
      node.parent = path.back();
      std::vector<std::int32_t>& siblings = at(node.parent).children;
      siblings.insert(first ? siblings.end() : siblings.begin(), row);
      path.push_back(row);
    }
  }
  Node& at(std::int32_t row) { return nodes[static_cast<std::size_t>(row)]; }

  std::vector<std::int32_t> shown() {
    std::vector<std::int32_t> rows;
    const std::function<void(std::int32_t)> walk = [&](std::int32_t row) {
      for (const std::int32_t child : at(row).children) {
        rows.push_back(child);
        if (!at(child).collapsed) walk(child);
      }
    };
    walk(0);
    return rows;
  }
  bool isLast(std::int32_t row) { return at(at(row).parent).children.back() == row; }
  std::int32_t shownAncestor(std::int32_t row) {
    std::int32_t shown = row;
    for (std::int32_t up = at(row).parent; up != 0; up = at(up).parent) {
      if (at(up).collapsed) shown = up;
    }
    return shown;
  }
  RowState state(std::int32_t row) {
    if (at(row).children.empty()) return RowState::Leaf;
    return at(row).collapsed ? RowState::Collapsed : RowState::Expanded;
  }
};

void expectSame(const RowTree& tree, Model& model, std::mt19937& random) {
  const std::vector<std::int32_t> shown = model.shown();
  ASSERT_EQ(tree.displayCount(), static_cast<std::int32_t>(shown.size()));
  std::vector<Row> rows;
  for (std::size_t index = 0; index < shown.size(); ++index) {
    rows.push_back(tree.nth(static_cast<std::int32_t>(index) + 1));
    ASSERT_EQ(rows.back().number, shown[index]);
  }
  EXPECT_EQ(tree.nth(0), noRow);
  EXPECT_EQ(tree.nth(tree.displayCount() + 1), noRow);
  std::vector<RowView> views;
  tree.view(rows, views);
  for (std::size_t index = 0; index < rows.size(); ++index) {
    const std::int32_t row = rows[index].number;
    ASSERT_EQ(tree.ordinal(rows[index]), static_cast<std::int32_t>(index) + 1);
    ASSERT_EQ(tree.NextRow(rows[index]), index + 1 < rows.size() ? rows[index + 1] : noRow);
    ASSERT_EQ(tree.PreviousRow(rows[index]), index > 0 ? rows[index - 1] : noRow);
    ASSERT_EQ(views[index].state, model.state(row));
    ASSERT_EQ(views[index].isFirst, index == 0);
    for (std::int32_t up = row; up != 0; up = model.at(up).parent) {
      ASSERT_EQ(views[index].hasSiblingBelow(model.at(up).level), !model.isLast(up));
    }
    ASSERT_EQ(tree.view(rows[index]).goesOn, views[index].goesOn);
  }
  const auto pick = [&] { return static_cast<std::int32_t>(random() % model.nodes.size()); };
  for (int i = 0; i < 50; ++i) {
    const Row a = tree.find(pick()), b = tree.find(pick());
    if (!a || !b) continue;
    ASSERT_EQ(tree.shownAncestor(a).number, model.shownAncestor(a.number));
    std::int32_t up = a.number;
    while (up != 0 && up != b.number) up = model.at(up).parent;
    ASSERT_EQ(tree.isAncestor(a, b), up == b.number && a != b);
  }
}

std::vector<std::int32_t> randomLevels(std::mt19937& random, std::size_t count, std::int32_t deepest,
                                       bool holes) {
  std::vector<std::int32_t> levels(count);
  std::int32_t last = 0;
  for (std::int32_t& level : levels) {
    level = 1 + static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(std::min(last + 1, deepest)));
    if (holes && random() % 8 == 0) {
      level = Outline::noLevel;
    } else {
      last = level;
    }
  }
  return levels;
}

// Over the size of a block, so that its seams are met.
TEST(RowTree, AnswersAsATreeOfNodes) {
  std::mt19937 random(7);
  for (int round = 0; round < 14; ++round) {
    const auto parents = round % 2 == 0 ? Outline::Parents::First : Outline::Parents::Last;
    const bool expanded = round % 4 < 2;
    auto levels = randomLevels(random, random() % 700, 1 + round % 7, round % 3 == 0);
    RowTree tree;
    if (parents == Outline::Parents::Last) {
      std::reverse(levels.begin(), levels.end());
      tree.buildGroups({}, expanded, levels);
    } else {
      const std::size_t later = round % 3 == 1 ? levels.size() / 2 : levels.size();
      tree.buildTree(expanded, std::span(levels).first(later));
      tree.appendToTree(std::span(levels).subspan(later));
    }
    Model model(levels, parents, expanded);
    expectSame(tree, model, random);
    for (int step = 0; step < 40; ++step) {
      const Row row = tree.find(static_cast<std::int32_t>(random() % model.nodes.size()));
      if (!row) continue;
      if (step % 20 == 19) {
        const bool collapses = random() % 2 == 0;
        collapses ? tree.collapseAll() : tree.expandAll();
        for (Model::Node& node : model.nodes) node.collapsed = collapses;
      } else if (step % 10 == 9) {
        tree.expandAncestors(row);
        for (std::int32_t up = model.at(row.number).parent; up != 0; up = model.at(up).parent) {
          model.at(up).collapsed = false;
        }
      } else if (model.state(row.number) != RowState::Leaf) {
        tree.toggle(row);
        model.at(row.number).collapsed = !model.at(row.number).collapsed;
      }
      if (step % 10 == 8) expectSame(tree, model, random);
      if (HasFatalFailure()) return;
    }
  }
}

}  // namespace
}  // namespace tessera
