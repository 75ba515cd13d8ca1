// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef GROUPMODEL_H
#define GROUPMODEL_H

#include <array>
#include <map>

// What a group and its boxes are to do, worked out here once more. Boxes are numbers; a box that
// does not exist is neither checked nor deaf.
class GroupModel
{
public:
    static constexpr int boxCount = 8;

    struct Box
    {
        bool checked = false;
        bool deaf = false;
    };

    // Returns false when the id is taken.
    bool add(int box, int id)
    {
        if (idToBox.count(id) != 0)
            return false;
        idToBox[id] = box;
        boxToId[box] = id;
        if (id == current) {
            check(box);
            at(box).deaf = true;
        }
        return true;
    }

    void select(int id)
    {
        if (id == current || idToBox.count(id) == 0)
            return;
        const auto previous = idToBox.find(current);
        if (previous != idToBox.end())
            at(previous->second) = Box();
        current = id;
        at(idToBox[id]).deaf = true;
        check(idToBox[id]);
        ++idChanges;
    }

    void check(int box)
    {
        if (at(box).checked)
            return;
        at(box).checked = true;
        // A box with two ids stands for the later one.
        if (boxToId.count(box) != 0)
            select(boxToId[box]);
    }

    void uncheck(int box) { at(box).checked = false; }

    void tap(int box)
    {
        if (at(box).deaf)
            return;
        if (at(box).checked)
            uncheck(box);
        else
            check(box);
    }

    void destroy(int box)
    {
        at(box) = Box();
        boxToId.erase(box);
        for (auto it = idToBox.begin(); it != idToBox.end();)
            it = it->second == box ? idToBox.erase(it) : std::next(it);
    }

    Box &at(int box) { return boxes[std::size_t(box)]; }

    // True when no box of the group is checked but the selected one.
    bool isExclusive()
    {
        for (const auto &entry : boxToId) {
            const auto selected = idToBox.find(current);
            const bool isSelected = selected != idToBox.end() && selected->second == entry.first;
            if (at(entry.first).checked && !isSelected)
                return false;
        }
        return true;
    }

    std::array<Box, boxCount> boxes;
    std::map<int, int> idToBox;
    std::map<int, int> boxToId;
    int current = 0;
    int idChanges = 0;
};

#endif
