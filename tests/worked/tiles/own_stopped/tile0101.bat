rem Coord Boundaries: 1600.00000 1700.00000 5360.00000 5440.00000
rem Cell Boundaries: 3 5 3 5
 
cd tile0101
 
 
rem extract bounds file
 
QVextract ..\mesh ..\limits.bnd limits.bnd 3 5 3 5 1 7 -Bounds
 
 
rem run coarse forward model and calculate residual
 
 
QVextract ..\mesh ..\refined.sus qvinv3d_tile.sus  3 5 3 5 1 7
 
copy ..\..\input\base.msh tilenull.msh
QVnullvol ..\..\input\base.msh ..\..\input\base.sus tilenull.sus 1600.00 1750.00 5360.00 5480.00 -75.000 200.000
 
