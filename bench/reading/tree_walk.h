#ifndef BENCH_READING_TREE_WALK_H
#define BENCH_READING_TREE_WALK_H

namespace bench {

/// Visits all nodes below `root` from the front to the back, without recursion: calls
/// `enter` in front of a node's children and `leave` behind them. `links` has
/// `first_child`, `next` and `parent`, which take a node and give a node; where there is
/// none, one that is false.
template <typename node, typename links, typename before, typename after>
void walk_below(node root, const links& tree, before enter, after leave) {
  node at = tree.first_child(root);
  while (at) {
    enter(at);
    node following = tree.first_child(at);
    while (!following && at != root) {
      leave(at);
      following = tree.next(at);
      if (!following) {
        at = tree.parent(at);
        if (at == root) {
          return;
        }
      }
    }
    at = following;
  }
}

}  // namespace bench

#endif
