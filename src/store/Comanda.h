#pragma once

// The write-through mirror of one open tab (built with the map).
class Comanda {};
