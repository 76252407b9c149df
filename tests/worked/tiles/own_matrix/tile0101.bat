rem Coord Boundaries: 1600.00000 1700.00000 5360.00000 5440.00000
rem Cell Boundaries: 3 5 3 5
 
cd tile0101
 
 
rem extract bounds file
 
QVextract ..\mesh ..\limits.bnd limits.bnd 3 5 3 5 1 7 -Bounds
 
 
rem run coarse forward model and calculate residual
 
 
QVextract ..\mesh ..\refined.sus qvinv3d_tile.sus  3 5 3 5 1 7
 
copy ..\..\input\base.msh tilenull.msh
QVnullvol ..\..\input\base.msh ..\..\input\base.sus tilenull.sus 1600.00 1750.00 5360.00 5480.00 -75.000 200.000
 
qvpre3d "..\..\input\QVinv3D_Tx.mtx|..\..\input\QVinv3D_Ty.mtx" tilenull.sus mag_null.obs mag.obs MASK=0
 
 
@if not exist QVinv3D_Tx.mtx goto doMTX:
@if not exist QVinv3D_Ty.mtx goto doMTX:
goto skipsen:
 
:doMTX
tasklist | findstr " QVsen3D_RPCServer.exe" || START "" "QVsen3D_RPCServer.exe"
qvsen3d_cluster_controller "%~dp0tile0101"
 
:skipsen
 
@if exist qvinv3d.kap goto RestartInversion:
qvinv3d qvinv3d.inp NOFAST
goto :FinishInversion
 
:RestartInversion
 
qvinv3d qvinv3d.restart
 
:FinishInversion
 
QVerror mag.obs qvinv3d.pre error.dat mesh
QVinsert mesh qvinv3d.sus ..\mesh ..\qvinv3d.sus 3 4 3 4 1 4
 
 
cd ..
