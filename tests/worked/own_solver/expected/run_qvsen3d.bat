qvsen3d qvsen3d.inp
