#pragma once

#include <QImage>
#include <QSize>

/// The demonstration pictures. Each is a drawing of its own for any size near the one it is shown at.

// Mountains and water
QImage mistyMountains(QSize size);
QImage desertDunes(QSize size);
QImage autumnLake(QSize size);
QImage inkRiver(QSize size);
QImage snowPeak(QSize size);
QImage riceTerraces(QSize size);
QImage sunsetSea(QSize size);
QImage forestDeer(QSize size);

// Skies
QImage summerClouds(QSize size);
QImage burningClouds(QSize size);
QImage rainbow(QSize size);
QImage milkyWay(QSize size);
QImage aurora(QSize size);
QImage moonOverSea(QSize size);
QImage starTrails(QSize size);

// Flowers and trees
QImage lotus(QSize size);
QImage plumBranch(QSize size);
QImage bamboo(QSize size);
QImage mapleLeaves(QSize size);
QImage dandelion(QSize size);
QImage dahlia(QSize size);

// Patterns
QImage seedSpiral(QSize size);
QImage latticeWindow(QSize size);
QImage seaWaves(QSize size);
QImage paperCut(QSize size);
QImage ceilingRosette(QSize size);
QImage flowingLines(QSize size);

// Nights
QImage cityNight(QSize size);
QImage skyLanterns(QSize size);
QImage fireworks(QSize size);
QImage rainyWindow(QSize size);

// Living things
QImage koiPond(QSize size);
QImage cranes(QSize size);
QImage butterfly(QSize size);
QImage jellyfish(QSize size);
QImage wildGeese(QSize size);
