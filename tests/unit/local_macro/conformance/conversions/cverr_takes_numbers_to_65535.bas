' CVErr makes a value of an error number; beyond 65535 it is error 5.
'> Error 65535
'! 5 Invalid procedure call or argument
Sub main()
    Debug.Print CStr(CVErr(65535))
    x = CVErr(65536)
End Sub
