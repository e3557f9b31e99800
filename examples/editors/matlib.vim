setlocal makeprg=matlib\ check\ --color\ never\ %:S
setlocal errorformat=%f:%l:%c:\ %trror:\ %m,%f:%l:%c:\ %tarning:\ %m,%f:%l:%c:\ %tote:\ %m,%-G%.%#
