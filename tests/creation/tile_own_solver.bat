rem Coord Boundaries: 1050.12500 1100.12500 5070.00000 5100.00000
rem Cell Boundaries: 6 11 15 21
 
cd tile0203
 
 
rem extract initial model
 
QVextract ..\mesh ..\start.sus start.sus 4 10 13 20 1 30
 
 
rem extract reference model
 
QVextract ..\mesh ..\ref.sus mag3d_ref.sus 4 10 13 20 1 30 -Ref ..\rock.csv
 
 
rem extract bounds file
 
QVextract ..\mesh ..\low.bnd mag3d_bounds.sus 4 10 13 20 1 30 -Bounds ..\rock.csv
 
 
rem run coarse forward model and calculate residual
 
 
QVextract ..\mesh ..\refined.den qvinv3d_tile.den  4 10 13 20 1 30
 
copy ..\..\base\coarse.msh tilenull.msh
QVnullvol ..\..\base\coarse.msh ..\..\base\coarse.sus tilenull.den 1030.13 1100.13 5060.00 5100.00 280.063 400.063
 
qvpre3d "..\..\base\QVinv3D_Gzz.mtx|..\..\base\QVinv3D_Guv.mtx" tilenull.den grav_null.obs grav.obs MASK=0
 
 
@if not exist QVinv3D_Gzz.mtx goto doMTX:
@if not exist QVinv3D_Guv.mtx goto doMTX:
goto skipsen:
 
:doMTX
tasklist | findstr " QVsen3D_RPCServer.exe" || START "" "QVsen3D_RPCServer.exe"
qvsen3d_cluster_controller "%~dp0tile0203"
 
:skipsen
 
@if exist qvinv3d.rho goto RestartInversion:
qvinv3d qvinv3d.inp NOFAST
goto :FinishInversion
 
:RestartInversion
 
qvinv3d qvinv3d.restart
 
:FinishInversion
 
QVerror grav.obs qvinv3d.pre error.dat mesh
QVinsert mesh qvinv3d.den ..\mesh ..\qvinv3d.den 6 10 15 20 1 25 10 5
 
 
cd ..
