rem Coord Boundaries: 1600.00000 1700.00000 5520.00000 5640.00000
rem Cell Boundaries: 3 5 7 10
 
cd tile0103
 
 
rem run coarse forward model and calculate residual
 
@if exist mag.obs goto skipForwardModel:
 
DMXextract ..\mesh ..\refined.sus maginv3d.mod  3 5 6 9 1 4 ..\mag.obs
 
copy ..\..\input\base.msh tilenull.msh
DMXnullvol ..\..\input\base.msh ..\..\input\base.sus tilenull.sus 1600.00 1750.00 5480.00 5640.00 100.000 200.000
 
magfor3d tilenull.msh mag.dat tilenull.sus
 
DMXdelreg mag.dat - magfor3d.mag mag.obs  12.5  2
 
:skipForwardModel
 
@if exist maginv3d.mtx goto skipsen:
magsen3d magsen3d.inp
 
:skipsen
 
@if exist maginv3d.kap goto RestartInversion:
maginv3d maginv3d.inp
goto :FinishInversion
 
:RestartInversion
 
maginv3d maginv3d.restart
 
:FinishInversion
 
dmxerror mag.obs maginv3d.pre error.dat mesh
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 3 4 7 9 1 4 1 1
 
 
cd ..
